// Any words behind the program's name, with a nought after each: answered, or the program goes on.
#include "platform/machine/command_line.h"

#include "fuzz/silence.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <vector>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size)
{
    static const int offScreen = setenv("QT_QPA_PLATFORM", "offscreen", 1);
    if (offScreen != 0)
        std::abort();
    std::string words(reinterpret_cast<const char *>(data), size);
    words += '\0';
    std::string program = "morlenekvt";
    std::vector<char *> arguments{program.data()};
    for (std::size_t at = 0; at < words.size(); at = words.find('\0', at) + 1)
        arguments.push_back(&words[at]);
    const int count = static_cast<int>(arguments.size());
    arguments.push_back(nullptr);

    const Silence silence;
    const auto status = platform::AnswerCommandLine(count, arguments.data(), "1.0");
    if (status && *status != 0 && *status != 2)
        std::abort();
    return 0;
}
