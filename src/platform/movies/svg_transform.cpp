// Where the elements of a drawing stand.
#include "platform/movies/svg_transform.h"

#include "platform/movies/svg_values.h"

namespace platform {
namespace {

// "translate(3 4) rotate(90)"; nothing for what is not understood.
std::optional<QTransform> Parsed(const QByteArray &text)
{
    const QByteArray calls = text.trimmed();
    if (!calls.isEmpty() && !calls.endsWith(')'))
        return std::nullopt;
    QTransform transform;
    for (const QByteArray &call : SplitTrimmed(calls, ')')) {
        const QList<QByteArray> parts = call.split('(');
        const auto numbers = NumberList(parts.last());
        if (parts.size() != 2 || !numbers || numbers->empty())
            return std::nullopt;
        const QByteArray name = parts.first().trimmed();
        const std::vector<double> &of = *numbers;
        if (name == "translate" && of.size() <= 2)
            transform.translate(of[0], of.size() == 2 ? of[1] : 0);
        else if (name == "scale" && of.size() <= 2)
            transform.scale(of[0], of.back());
        else if (name == "rotate" && of.size() == 1)
            transform.rotate(of[0]);
        else if (name == "rotate" && of.size() == 3)
            transform.translate(of[1], of[2]).rotate(of[0]).translate(-of[1], -of[2]);
        else
            return std::nullopt;
    }
    return transform;
}

} // namespace

std::optional<QTransform> TransformOf(const SvgDocument &document, int element)
{
    QTransform transform;
    for (int at = element; at >= 0; at = document.Elements[static_cast<size_t>(at)].Parent) {
        const QByteArray *text = document.Elements[static_cast<size_t>(at)].Find("transform");
        if (text == nullptr)
            continue;
        const auto own = Parsed(*text);
        if (!own)
            return std::nullopt;
        transform *= *own;
    }
    return transform;
}

} // namespace platform
