// The 216 web-safe colours from which an adult chooses, in a fixed order that no formula gives.
#pragma once

#include "platform/base/colors.h"

#include <QString>

#include <array>

constexpr int QuantiColoriWeb = 216;

// As RRGGBB, and as the literal &H00BBGGRR& of the colours of controls. Filled by
// `PreparaColoriWeb`, which `Main` calls once.
extern std::array<QString, QuantiColoriWeb> ColoriWebHex;
extern std::array<QString, QuantiColoriWeb> ColoriWebLetterali;

void PreparaColoriWeb();

// The colour of a literal such as "&H0000CCFF&"; error 13 for anything else.
platform::Color ConvertiLetterale(const QString &letterale);
