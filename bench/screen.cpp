#include "screen.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <arpa/inet.h>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>
#include <xcb/damage.h>
#include <xcb/xcb_keysyms.h>
#include <xcb/xtest.h>

namespace {

[[noreturn]] void Fail(const char *what)
{
    std::fprintf(stderr, "bench: %s\n", what);
    std::exit(1);
}

// Fields of the head of the server's file, 32 bits each, the highest byte first.
enum Head { Size = 0, Width = 4, Height = 5, BitsPerPixel = 11, BytesPerLine = 12, Colours = 19 };
constexpr size_t BytesOfColour = 12;
constexpr size_t BytesOfPixel = 4;

} // namespace

Screen::Screen(const std::string &pixels)
    : m_ears(xcb_connect(nullptr, nullptr)), m_hand(xcb_connect(nullptr, nullptr))
{
    if (xcb_connection_has_error(m_ears) != 0 || xcb_connection_has_error(m_hand) != 0)
        Fail("no display");
    const int file = open(pixels.c_str(), O_RDONLY);
    struct stat about = {};
    if (file < 0 || fstat(file, &about) != 0)
        Fail("no file of pixels");
    void *memory =
        mmap(nullptr, static_cast<size_t>(about.st_size), PROT_READ, MAP_SHARED, file, 0);
    if (memory == MAP_FAILED)
        Fail("the pixels cannot be read");
    close(file);
    const auto *head = static_cast<const uint32_t *>(memory);
    const auto field = [&](Head number) { return static_cast<size_t>(ntohl(head[number])); };
    if (field(BitsPerPixel) != BytesOfPixel * 8)
        Fail("the screen must have 24 bits a pixel");
    m_pixels = static_cast<const uint8_t *>(memory) + field(Size) + field(Colours) * BytesOfColour;
    m_stride = field(BytesPerLine);
    m_width = static_cast<int>(field(Head::Width));
    m_height = static_cast<int>(field(Head::Height));

    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_ears)).data->root;
    m_damage = xcb_get_extension_data(m_ears, &xcb_damage_id)->first_event;
    std::free(
        xcb_damage_query_version_reply(m_ears, xcb_damage_query_version(m_ears, 1, 1), nullptr));
    const uint32_t events = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(m_ears, m_root, XCB_CW_EVENT_MASK, &events);
    xcb_damage_create(m_ears, xcb_generate_id(m_ears), m_root,
                      XCB_DAMAGE_REPORT_LEVEL_RAW_RECTANGLES);
    xcb_flush(m_ears);
    m_listener = std::thread([this] { Listen(); });
    m_listener.detach();
}

Screen::~Screen()
{
    xcb_disconnect(m_hand);
}

void Screen::Listen()
{
    while (xcb_generic_event_t *event = xcb_wait_for_event(m_ears)) {
        const auto now = Clock::now();
        const int type = event->response_type & 0x7F;
        const std::lock_guard lock(m_mutex);
        if (type == m_damage) {
            const auto &area = reinterpret_cast<xcb_damage_notify_event_t *>(event)->area;
            m_paintings.push_back({now, area.x, area.y, area.width, area.height});
            m_last = now;
            m_changed.notify_all();
        } else if (type == XCB_MAP_NOTIFY && m_mapped == m_begin) {
            m_mapped = now;
        }
        std::free(event);
    }
}

void Screen::Begin()
{
    m_before.assign(m_pixels, m_pixels + m_stride * static_cast<size_t>(m_height));
    const std::lock_guard lock(m_mutex);
    m_paintings.clear();
    m_begin = m_last = m_mapped = Clock::now();
}

void Screen::WaitUntilQuiet(std::chrono::milliseconds quiet)
{
    std::unique_lock lock(m_mutex);
    m_last = std::max(m_last, Clock::now());
    while (Clock::now() < m_last + quiet)
        m_changed.wait_until(lock, m_last + quiet);
}

Clock::time_point Screen::LastPixel(std::chrono::milliseconds quiet)
{
    WaitUntilQuiet(quiet);
    const std::lock_guard lock(m_mutex);
    for (auto painting = m_paintings.rbegin(); painting != m_paintings.rend(); ++painting) {
        const int left = std::max(painting->Left, 0);
        const int right = std::min(painting->Left + painting->Width, m_width);
        const int bottom = std::min(painting->Top + painting->Height, m_height);
        for (int y = std::max(painting->Top, 0); y < bottom && left < right; ++y) {
            const size_t at = static_cast<size_t>(left) * BytesOfPixel;
            if (std::memcmp(Row(y) + at, m_before.data() + (Row(y) - m_pixels) + at,
                            static_cast<size_t>(right - left) * BytesOfPixel) != 0)
                return painting->When;
        }
    }
    return m_begin;
}

Clock::time_point Screen::FirstPainting(std::chrono::milliseconds atMost)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait_for(lock, atMost, [this] { return !m_paintings.empty(); });
    return m_paintings.empty() ? m_begin : m_paintings.front().When;
}

Clock::time_point Screen::Mapped()
{
    const std::lock_guard lock(m_mutex);
    return m_mapped;
}

void Screen::Fake(uint8_t type, uint8_t detail, int x, int y)
{
    xcb_test_fake_input(m_hand, type, detail, XCB_CURRENT_TIME, m_root, static_cast<int16_t>(x),
                        static_cast<int16_t>(y), 0);
    xcb_flush(m_hand);
}

void Screen::Move(int x, int y)
{
    Fake(XCB_MOTION_NOTIFY, 0, x, y);
}

void Screen::Press(int x, int y)
{
    Move(x, y);
    WaitUntilQuiet(std::chrono::milliseconds(60));
    Fake(XCB_BUTTON_PRESS, 1);
    WaitUntilQuiet(std::chrono::milliseconds(60));
}

void Screen::Release()
{
    Fake(XCB_BUTTON_RELEASE, 1);
}

namespace {

uint8_t CodeOf(xcb_connection_t *hand, xcb_keysym_t key)
{
    static xcb_key_symbols_t *symbols = xcb_key_symbols_alloc(hand);
    xcb_keycode_t *codes = xcb_key_symbols_get_keycode(symbols, key);
    const uint8_t code = codes == nullptr ? uint8_t{0} : codes[0];
    std::free(codes);
    return code;
}

} // namespace

void Screen::KeyDown(xcb_keysym_t key)
{
    Fake(XCB_KEY_PRESS, CodeOf(m_hand, key));
}

void Screen::KeyUp(xcb_keysym_t key)
{
    Fake(XCB_KEY_RELEASE, CodeOf(m_hand, key));
}
