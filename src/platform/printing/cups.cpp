#include "platform/printing/cups.h"

#include <QtGlobal>

#ifndef Q_OS_WIN

#include <QLibrary>

#include <optional>
#include <type_traits>

namespace platform {

namespace {

std::optional<Cups> LookUp()
{
    Cups cups{};
    bool all = true;
    const auto look = [&all](auto &call, const char *name) {
        call = reinterpret_cast<std::remove_reference_t<decltype(call)>>(
            QLibrary::resolve(QStringLiteral("cups"), 2, name));
        all = all && call != nullptr;
    };
    look(cups.Server, "cupsServer");
    look(cups.Port, "ippPort");
    look(cups.Encryption, "cupsEncryption");
    look(cups.SetPassword, "cupsSetPasswordCB2");
    look(cups.LastError, "cupsLastError");
    look(cups.Connect, "httpConnect2");
    look(cups.SetTimeout, "httpSetTimeout");
    look(cups.Close, "httpClose");
    look(cups.DefaultPrinter, "cupsGetDefault2");
    look(cups.Printers, "cupsGetDests2");
    look(cups.FreePrinters, "cupsFreeDests");
    look(cups.PrinterNamed, "cupsGetNamedDest");
    look(cups.Facts, "cupsCopyDestInfo");
    look(cups.FreeFacts, "cupsFreeDestInfo");
    look(cups.PaperCount, "cupsGetDestMediaCount");
    look(cups.Paper, "cupsGetDestMediaByIndex");
    look(cups.FindDefault, "cupsFindDestDefault");
    look(cups.String, "ippGetString");
    look(cups.CreateJob, "cupsCreateJob");
    look(cups.StartDocument, "cupsStartDocument");
    look(cups.Write, "cupsWriteRequestData");
    look(cups.FinishDocument, "cupsFinishDocument");
    look(cups.CancelJob, "cupsCancelJob2");
    return all ? std::optional(cups) : std::nullopt;
}

} // namespace

const Cups *TheCups()
{
    // Never deleted: a thread may still stand in a call when the process ends.
    static const auto *cups = new std::optional<Cups>(LookUp());
    return cups->has_value() ? &**cups : nullptr;
}

} // namespace platform

#endif
