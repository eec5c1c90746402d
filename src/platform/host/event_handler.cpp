#include "platform/host/event_handler.h"

#include "platform/base/errors.h"
#include "platform/host/host.h"

namespace platform {

void Guarded(const std::function<void()> &code)
{
    try {
        code();
    } catch (const RunTimeError &error) {
        host().FatalError(error.Number(), error.Text());
    } catch (const std::exception &error) {
        host().FatalError(0, QString::fromLocal8Bit(error.what()));
    }
}

} // namespace platform
