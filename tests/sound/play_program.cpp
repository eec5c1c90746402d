// Plays sounds as the program does, told by lines on standard input, for the test of real sound:
// a line with a path plays that file, and the microseconds until the call came back are answered.
#include <chrono>
#include <iostream>
#include <string>

#include "platform/sound/sound_player.h"

int main()
{
    std::string path;
    while (std::getline(std::cin, path)) {
        const auto before = std::chrono::steady_clock::now();
        platform::PlaySoundFile(QString::fromStdString(path));
        const auto waited = std::chrono::steady_clock::now() - before;
        std::cout << std::chrono::duration_cast<std::chrono::microseconds>(waited).count()
                  << std::endl;
    }
    return 0;
}
