// Where the elements of a drawing stand.
#pragma once

#include "platform/movies/svg_document.h"

#include <QTransform>

#include <optional>

namespace platform {

// From the units inside the element, its own transform included, to the drawing's. Nothing when
// some transform on the way is skewed or not understood.
std::optional<QTransform> TransformOf(const SvgDocument &document, int element);

} // namespace platform
