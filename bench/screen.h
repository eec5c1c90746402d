// A screen that is looked at from outside: what is painted on it and when, and a person's hand.
#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include <xcb/xcb.h>

using Clock = std::chrono::steady_clock;

inline double Milliseconds(Clock::duration time)
{
    return std::chrono::duration<double, std::milli>(time).count();
}

struct Painting {
    Clock::time_point When;
    int Left, Top, Width, Height;
};

class Screen {
public:
    // The file in which the display server keeps its pixels: to look costs the server nothing.
    explicit Screen(const std::string &pixels);
    ~Screen();
    Screen(const Screen &) = delete;
    Screen &operator=(const Screen &) = delete;

    int Width() const { return m_width; }
    int Height() const { return m_height; }

    // From here on paintings and windows count.
    void Begin();
    // Waits until nothing has been painted for so long and tells when the last painting was that
    // covers a pixel which ends up different; the time of `Begin` when there is none.
    Clock::time_point LastPixel(std::chrono::milliseconds quiet);
    // When the first painting was that is seen so soon; `Begin` with none.
    Clock::time_point FirstPainting(std::chrono::milliseconds atMost);
    // When the first window was mapped.
    Clock::time_point Mapped();

    void Move(int x, int y);
    void Press(int x, int y); // moves there first, and waits for what that paints
    void Release();
    void KeyDown(xcb_keysym_t key);
    void KeyUp(xcb_keysym_t key);
    void WaitUntilQuiet(std::chrono::milliseconds quiet);

private:
    void Listen();
    void Fake(uint8_t type, uint8_t detail, int x = 0, int y = 0);
    const uint8_t *Row(int y) const { return m_pixels + static_cast<size_t>(y) * m_stride; }

    std::mutex m_mutex;
    std::condition_variable m_changed;
    std::deque<Painting> m_paintings;
    Clock::time_point m_begin = Clock::now();
    Clock::time_point m_last = m_begin;
    Clock::time_point m_mapped = m_begin;
    std::vector<uint8_t> m_before;

    xcb_connection_t *m_ears;
    xcb_connection_t *m_hand;
    xcb_window_t m_root = 0;
    uint8_t m_damage = 0;
    const uint8_t *m_pixels = nullptr;
    size_t m_stride = 0;
    int m_width = 0;
    int m_height = 0;
    std::thread m_listener;
};
