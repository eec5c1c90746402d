// Reads one element of animation: its times, its values, its easing.
#include "platform/movies/svg_animation.h"

#include "platform/movies/svg_values.h"

#include <QColor>

#include <algorithm>
#include <cmath>

namespace platform {
namespace {

constexpr double LongestMovie = 24.0 * 60 * 60 * 1000; // ms

bool IsColor(const QByteArray &attribute)
{
    return attribute == "fill" || attribute == "stroke" || attribute == "stop-color" ||
           attribute == "color";
}

double Neutral(const QByteArray &attribute)
{
    return attribute.contains("opacity") ? 1 : 0;
}

// "10px" is the number 10 between "" and "px".
struct Skeleton {
    QList<QByteArray> Pieces{QByteArray()};
    std::vector<double> Numbers;
};

Skeleton Dissect(const QByteArray &text)
{
    Skeleton skeleton;
    int position = 0;
    while (position < text.size()) {
        if (const auto number = ScanNumber(text, position)) {
            skeleton.Numbers.push_back(*number);
            skeleton.Pieces.append(QByteArray());
        } else {
            const char letter = text[position++];
            if (letter != ' ' && letter != ',' && letter != '\n' && letter != '\t')
                skeleton.Pieces.last() += letter;
        }
    }
    return skeleton;
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
    bool MotionValues();
    bool Keys();
    bool Easing();
    size_t Count() const { return std::max(m_track.Frames.size(), m_track.Texts.size()); }
    bool Has(const char *name) const { return m_element.Find(name) != nullptr; }

    const SvgDocument &m_document;
    const SvgElement &m_element;
    SvgTrack m_track;
    QList<QByteArray> m_values; // as written, from "from", "to" and "by" too
    bool m_byOnly = false;
    bool m_fromBy = false;
    bool m_paced = false;
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
    if (const QByteArray *reference = m_element.Find("xlink:href"))
        m_track.Element = m_document.Index(reference->mid(1));
    if (m_track.Element < 0 ||
        IsAnimation(m_document.Elements[static_cast<size_t>(m_track.Element)]))
        return false;
    m_track.Attribute = m_element.Value("attributeName");
    if (m_element.Name == "animateMotion" ||
        (m_element.Name == "animateTransform" && m_track.Attribute.isEmpty()))
        m_track.Attribute = "transform";
    // What names things, or is the frame of the whole picture, is not animated.
    static const QList<QByteArray> fixed{"",      "id",          "xlink:href", "href", "viewBox",
                                         "xmlns", "xmlns:xlink", "style",      "class"};
    const bool transform = m_track.Attribute.endsWith("ransform");
    const bool plain = std::all_of(m_track.Attribute.begin(), m_track.Attribute.end(), [](char c) {
        return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
               c == '-';
    });
    return plain && !fixed.contains(m_track.Attribute) && !m_track.Attribute.contains("dash") &&
           transform == (m_element.Name == "animateTransform" || m_element.Name == "animateMotion");
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
    m_track.Sum = m_element.Value("additive") == "sum";
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
    else if (Has("to"))
        m_values = {m_element.Value("from"), m_element.Value("to")};
    else if (Has("by"))
        m_values = {m_element.Value("from"), m_element.Value("by")};
    const bool both = !Has("values") && Has("by") && !Has("to");
    m_byOnly = both && !Has("from");
    m_fromBy = both && Has("from");
    m_track.Sum = m_track.Sum || m_byOnly;
    if (m_element.Name == "animateMotion")
        return MotionValues();
    if (m_values.isEmpty())
        return false;
    if (m_element.Name == "animateTransform")
        return TransformValues();
    if (m_values.first().isEmpty()) { // from what the drawing has
        const QByteArray base =
            m_document.Elements[static_cast<size_t>(m_track.Element)].Value(m_track.Attribute);
        m_values.first() = m_byOnly          ? QByteArray("0")
                           : !base.isEmpty() ? base
                                             : QByteArray::number(Neutral(m_track.Attribute));
    }
    return (IsColor(m_track.Attribute) ? ColorValues() : NumberValues()) || TextValues();
}

bool Compiler::TextValues()
{
    m_track.What = SvgTrack::Kind::Text;
    m_track.Frames.clear();
    m_track.Texts.assign(m_values.begin(), m_values.end());
    m_track.Steps = true;
    return !m_track.Texts.empty() && !m_fromBy && !m_byOnly;
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
    return !m_fromBy && !m_byOnly;
}

bool Compiler::NumberValues()
{
    m_track.What = SvgTrack::Kind::Numbers;
    for (const QByteArray &value : m_values) {
        Skeleton skeleton = Dissect(value);
        if (m_track.Frames.empty())
            m_track.Pieces = skeleton.Pieces;
        const bool word = m_track.Attribute != "d" && !m_track.Pieces.first().isEmpty();
        if (word || skeleton.Numbers.empty() || skeleton.Pieces != m_track.Pieces)
            return false;
        if (m_fromBy && !m_track.Frames.empty())
            for (size_t index = 0; index < skeleton.Numbers.size(); ++index)
                skeleton.Numbers[index] += m_track.Frames.front()[index];
        m_track.Frames.push_back(std::move(skeleton.Numbers));
    }
    // Nothing to add to: the sum starts from what the attribute means when it is left out.
    const bool base = m_document.Elements[static_cast<size_t>(m_track.Element)].Find(
                          m_track.Attribute) != nullptr;
    if (m_track.Sum && !base)
        for (auto &frame : m_track.Frames)
            frame.front() += Neutral(m_track.Attribute);
    return true;
}

bool Compiler::TransformValues()
{
    m_track.What = SvgTrack::Kind::Transform;
    m_track.Function = Has("type") ? m_element.Value("type") : QByteArray("translate");
    static const QHash<QByteArray, size_t> sizes{
        {"translate", 2}, {"scale", 2}, {"rotate", 3}, {"skewX", 1}, {"skewY", 1}};
    const auto size = sizes.constFind(m_track.Function);
    if (size == sizes.constEnd())
        return false;
    const bool scale = m_track.Function == "scale";
    for (const QByteArray &value : m_values) {
        auto numbers = NumberList(value);
        if (!numbers || numbers->size() > *size)
            return false;
        if (numbers->empty()) // only "to" or "by": from the place where nothing is moved
            numbers->push_back(scale && !m_byOnly ? 1 : 0);
        if (*size == 3 && numbers->size() == 2)
            return false;
        const double missing = scale ? numbers->front() : 0;
        numbers->resize(*size, missing);
        if (m_fromBy && !m_track.Frames.empty())
            for (size_t index = 0; index < numbers->size(); ++index)
                (*numbers)[index] += m_track.Frames.front()[index];
        m_track.Frames.push_back(std::move(*numbers));
    }
    // By itself a factor is added to the size that is there.
    if (m_byOnly && scale)
        for (auto &frame : m_track.Frames)
            for (double &number : frame)
                number += 1;
    return true;
}

bool Compiler::MotionValues()
{
    m_track.What = SvgTrack::Kind::Motion;
    std::vector<QPointF> points;
    for (const QByteArray &value : m_values) {
        auto numbers = NumberList(value);
        if (!numbers || (numbers->size() != 2 && !numbers->empty()))
            return false;
        numbers->resize(2, 0);
        QPointF point((*numbers)[0], (*numbers)[1]);
        points.push_back(m_fromBy && !points.empty() ? points.front() + point : point);
    }
    const bool path = Has("path");
    m_track.Path = path ? MotionPath(PathFromData(m_element.Value("path"))) : MotionPath(points);
    if (m_track.Path.IsEmpty())
        return false;
    const QByteArray rotate = m_element.Value("rotate");
    m_track.TurnWithPath = rotate.startsWith("auto");
    m_track.Turn = rotate == "auto-reverse" ? 180 : rotate.toDouble();
    if (Has("keyPoints")) {
        for (const QByteArray &value : SplitTrimmed(m_element.Value("keyPoints"), ';'))
            m_track.Frames.push_back({std::clamp(value.toDouble(), 0.0, 1.0)});
        return !m_track.Frames.empty();
    }
    const QByteArray mode = m_element.Value("calcMode");
    m_paced = path || mode.isEmpty() || mode == "paced";
    if (m_paced)
        m_track.Frames = {{0.0}, {1.0}};
    else
        for (const double share : m_track.Path.Shares())
            m_track.Frames.push_back({share});
    return true;
}

bool Compiler::Keys()
{
    const size_t count = Count();
    m_track.Steps = m_track.Steps || (m_element.Value("calcMode") == "discrete" && !m_paced);
    if (Has("keyTimes") && !m_paced && m_element.Name != "set") {
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
