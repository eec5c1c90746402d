// The animations of a drawing, computed for any moment.
#include "platform/movies/svg_animation.h"

#include <algorithm>
#include <charconv>
#include <cmath>

namespace platform {
namespace {

void AppendNumber(QByteArray &text, double number)
{
    std::array<char, 64> letters{};
    const auto [end, error] = std::to_chars(letters.data(), letters.data() + letters.size(), number,
                                            std::chars_format::fixed, 4);
    if (error == std::errc())
        text.append(letters.data(), end - letters.data());
}

QByteArray Call(const QByteArray &function, const std::vector<double> &numbers)
{
    QByteArray text = function + '(';
    for (size_t index = 0; index < numbers.size(); ++index) {
        if (index > 0)
            text += ' ';
        AppendNumber(text, numbers[index]);
    }
    return text + ')';
}

// The curve of an easing: the height at a share of its time.
double Eased(const std::array<double, 4> &spline, double share)
{
    const auto curve = [](double a, double b, double at) {
        return 3 * (1 - at) * (1 - at) * at * a + 3 * (1 - at) * at * at * b + at * at * at;
    };
    double low = 0;
    double high = 1;
    for (int step = 0; step < 30; ++step) {
        const double middle = (low + high) / 2;
        (curve(spline[0], spline[2], middle) < share ? low : high) = middle;
    }
    return curve(spline[1], spline[3], (low + high) / 2);
}

} // namespace

std::optional<double> SvgTrack::Share(double milliseconds) const
{
    if (milliseconds < Begin)
        return std::nullopt;
    if (Cycle <= 0)
        return 0;
    if (milliseconds < End()) {
        const double cycles = (milliseconds - Begin) / Cycle;
        return cycles - std::floor(cycles);
    }
    if (!Freeze)
        return std::nullopt;
    const double rest = Repeats - std::floor(Repeats);
    return rest > 0 ? rest : 1;
}

// The value before `share` and how far on it is to the next one.
size_t SvgTrack::Gap(double share, double &part) const
{
    const auto next = std::upper_bound(Times.begin(), Times.end(), share);
    const size_t index = next == Times.begin() ? 0 : static_cast<size_t>(next - Times.begin()) - 1;
    part = 0;
    if (Steps || index + 1 >= Times.size())
        return index;
    const double width = Times[index + 1] - Times[index];
    part = width > 0 ? std::clamp((share - Times[index]) / width, 0.0, 1.0) : 0;
    if (!Splines.empty())
        part = Eased(Splines[index], part);
    return index;
}

std::vector<double> SvgTrack::Mixed(double share) const
{
    double part = 0;
    const size_t index = Gap(share, part);
    std::vector<double> numbers = Frames[index];
    if (part > 0)
        for (size_t place = 0; place < numbers.size(); ++place)
            numbers[place] += part * (Frames[index + 1][place] - numbers[place]);
    return numbers;
}

QByteArray SvgTrack::ValueAt(double share) const
{
    if (What == Kind::Text) {
        double part = 0;
        return Texts[Gap(share, part)];
    }
    const std::vector<double> numbers = Mixed(share);
    QByteArray text;
    if (What == Kind::Transform) {
        text = Call(Function, numbers);
    } else if (What == Kind::Color) {
        text = "#";
        for (const double number : numbers)
            text += QByteArray::number(static_cast<int>(std::lround(number)), 16)
                        .rightJustified(2, '0');
    } else {
        AppendNumber(text, numbers.front());
    }
    return text;
}

SvgAnimation::SvgAnimation(const SvgDocument &document)
{
    double longest = 0;
    const int count = static_cast<int>(document.Elements.size());
    for (int index = 0; index < count; ++index) {
        auto track = CompileTrack(document, index);
        if (!track)
            continue;
        const double end = track->End();
        longest = std::max(longest, std::isfinite(end) ? end : track->Begin + track->Cycle);
        auto target = std::find_if(m_targets.begin(), m_targets.end(), [&](const Target &one) {
            return one.Element == track->Element && one.Attribute == track->Attribute;
        });
        if (target == m_targets.end())
            target = m_targets.insert(target, {track->Element, track->Attribute, {}});
        target->Tracks.push_back(std::move(*track));
    }
    m_duration = static_cast<int>(std::ceil(longest));
}

SvgAnimation::Values SvgAnimation::At(const SvgDocument &base, double milliseconds) const
{
    Values values;
    for (const Target &target : m_targets) {
        const QByteArray *own =
            base.Elements[static_cast<size_t>(target.Element)].Find(target.Attribute);
        std::optional<QByteArray> value = own != nullptr ? std::optional(*own) : std::nullopt;
        for (const SvgTrack &track : target.Tracks)
            if (const auto share = track.Share(milliseconds))
                value = track.ValueAt(*share);
        values.push_back(std::move(value));
    }
    return values;
}

std::vector<int> SvgAnimation::Changes(const Values &before, const Values &after) const
{
    std::vector<int> elements;
    for (size_t index = 0; index < m_targets.size(); ++index)
        if (before.empty() || before[index] != after[index])
            elements.push_back(m_targets[index].Element);
    std::sort(elements.begin(), elements.end());
    return elements;
}

void SvgAnimation::Apply(const Values &values, SvgDocument &document) const
{
    for (size_t index = 0; index < m_targets.size(); ++index) {
        const Target &target = m_targets[index];
        SvgElement &element = document.Elements[static_cast<size_t>(target.Element)];
        if (values[index])
            element.Set(target.Attribute, *values[index]);
        else
            element.Remove(target.Attribute);
    }
}

} // namespace platform
