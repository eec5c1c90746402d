// Reads one element of animation: its times, its values, its easing.
#include "platform/movies/svg_animation.h"

#include "platform/movies/svg_values.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr double LongestMovie = 24.0 * 60 * 60 * 1000; // ms

// Attributes of a shape or group that move by number; place and turn have their own element.
const QSet<QByteArray> &NumberAttributes()
{
    static const QSet<QByteArray> names =
        Names("x y x1 y1 x2 y2 cx cy r rx ry width height opacity "
              "fill-opacity stroke-opacity stroke-width");
    return names;
}

bool IsColor(const QByteArray &attribute)
{
    return attribute == "fill" || attribute == "stroke";
}

bool IsSwitch(const QByteArray &attribute)
{
    return attribute == "display" || attribute == "visibility";
}

class Compiler {
public:
    Compiler(const SvgDocument &document, int index)
        : m_document(document), m_element(document.Elements[static_cast<size_t>(index)])
    {
    }
    std::optional<SvgTrack> Run();

private:
    bool Target();
    bool Timing();
    bool Values();
    bool TextValues();
    bool NumberValues();
    bool ColorValues();
    bool TransformValues();
    bool Keys();
    bool Easing();
    size_t Count() const { return std::max(m_track.Frames.size(), m_track.Texts.size()); }
    bool Has(const char *name) const { return m_element.Find(name) != nullptr; }

    const SvgDocument &m_document;
    const SvgElement &m_element;
    SvgTrack m_track;
    QList<QByteArray> m_values; // as written, from "from" and "to" too
};

std::optional<SvgTrack> Compiler::Run()
{
    if (!IsAnimation(m_element) || !Target() || !Timing() || !Values() || !Keys() || !Easing())
        return std::nullopt;
    return std::move(m_track);
}

bool Compiler::Target()
{
    m_track.Element = m_element.Parent;
    if (Has("xlink:href") || m_track.Element < 0 ||
        IsAnimation(m_document.Elements[static_cast<size_t>(m_track.Element)]))
        return false;
    m_track.Attribute = m_element.Value("attributeName");
    if (m_element.Name == "animateTransform")
        return m_track.Attribute == "transform";
    return IsColor(m_track.Attribute) || IsSwitch(m_track.Attribute) ||
           NumberAttributes().contains(m_track.Attribute);
}

bool Compiler::Timing()
{
    if (const QByteArray *begin = m_element.Find("begin")) {
        const auto value = ClockValue(*begin);
        if (!value)
            return false;
        m_track.Begin = *value;
    }
    const QByteArray duration = m_element.Value("dur");
    if (!duration.isEmpty() && duration != "indefinite") {
        const auto value = ClockValue(duration);
        if (!value || *value <= 0)
            return false;
        m_track.Cycle = std::min(*value, LongestMovie);
    }
    const QByteArray repeats = m_element.Value("repeatCount");
    if (repeats == "indefinite") {
        m_track.Repeats = std::numeric_limits<double>::infinity();
    } else if (!repeats.isEmpty()) {
        m_track.Repeats = repeats.toDouble();
        if (!(m_track.Repeats > 0) || m_track.Repeats * m_track.Cycle > LongestMovie)
            return false;
    }
    m_track.Freeze = m_element.Value("fill") == "freeze";
    return std::abs(m_track.Begin) <= LongestMovie;
}

bool Compiler::Values()
{
    if (m_element.Name == "set") {
        m_values = {m_element.Value("to")};
        return TextValues();
    }
    if (Has("values"))
        m_values = SplitTrimmed(m_element.Value("values"), ';');
    else if (Has("from") && Has("to"))
        m_values = {m_element.Value("from"), m_element.Value("to")};
    if (m_values.isEmpty())
        return false;
    if (m_element.Name == "animateTransform")
        return TransformValues();
    return (IsColor(m_track.Attribute) ? ColorValues() : NumberValues()) || TextValues();
}

bool Compiler::TextValues()
{
    m_track.What = SvgTrack::Kind::Text;
    m_track.Frames.clear();
    m_track.Texts.assign(m_values.begin(), m_values.end());
    m_track.Steps = true;
    return true;
}

bool Compiler::ColorValues()
{
    m_track.What = SvgTrack::Kind::Color;
    for (const QByteArray &value : m_values) {
        const QColor color(QString::fromUtf8(value));
        if (!color.isValid() || value == "transparent")
            return false;
        m_track.Frames.push_back({static_cast<double>(color.red()),
                                  static_cast<double>(color.green()),
                                  static_cast<double>(color.blue())});
    }
    return true;
}

bool Compiler::NumberValues()
{
    m_track.What = SvgTrack::Kind::Number;
    for (const QByteArray &value : m_values) {
        auto numbers = NumberList(value);
        if (!numbers || numbers->size() != 1)
            return false;
        m_track.Frames.push_back(std::move(*numbers));
    }
    return true;
}

bool Compiler::TransformValues()
{
    m_track.What = SvgTrack::Kind::Transform;
    m_track.Function = m_element.Value("type");
    const bool scale = m_track.Function == "scale";
    const bool rotate = m_track.Function == "rotate";
    if (!scale && !rotate && m_track.Function != "translate")
        return false;
    const size_t size = rotate ? 3 : 2;
    for (const QByteArray &value : m_values) {
        auto numbers = NumberList(value);
        if (!numbers || numbers->empty() || numbers->size() > size ||
            (rotate && numbers->size() == 2))
            return false;
        numbers->resize(size, scale ? numbers->front() : 0);
        m_track.Frames.push_back(std::move(*numbers));
    }
    return true;
}

bool Compiler::Keys()
{
    const size_t count = Count();
    m_track.Steps = m_track.Steps || m_element.Value("calcMode") == "discrete";
    if (Has("keyTimes") && m_element.Name != "set") {
        double before = 0;
        for (const QByteArray &value : SplitTrimmed(m_element.Value("keyTimes"), ';')) {
            const double time = value.toDouble();
            if (!(time >= before && time <= 1) || (m_track.Times.empty() && time != 0))
                return false;
            m_track.Times.push_back(before = time);
        }
        return m_track.Times.size() == count;
    }
    const double gaps = static_cast<double>(m_track.Steps ? count : std::max<size_t>(count, 2) - 1);
    for (size_t index = 0; index < count; ++index)
        m_track.Times.push_back(static_cast<double>(index) / gaps);
    return true;
}

bool Compiler::Easing()
{
    if (m_element.Value("calcMode") != "spline" || m_track.Steps)
        return true;
    for (const QByteArray &value : SplitTrimmed(m_element.Value("keySplines"), ';')) {
        const auto numbers = NumberList(value);
        if (!numbers || numbers->size() != 4 ||
            std::any_of(numbers->begin(), numbers->end(),
                        [](double number) { return number < 0 || number > 1; }))
            return false;
        m_track.Splines.push_back({(*numbers)[0], (*numbers)[1], (*numbers)[2], (*numbers)[3]});
    }
    return m_track.Splines.size() + 1 == Count();
}

} // namespace

std::optional<SvgTrack> CompileTrack(const SvgDocument &document, int index)
{
    return Compiler(document, index).Run();
}

} // namespace platform
