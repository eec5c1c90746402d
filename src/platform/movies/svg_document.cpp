// A drawing as a plain list of elements in the order of the file.
#include "platform/movies/svg_document.h"

namespace platform {
namespace {

void AppendAttribute(QByteArray &text, const QByteArray &name, const QByteArray &value)
{
    text += ' ';
    text += name;
    text += "=\"";
    for (const char letter : value)
        switch (letter) {
        case '&':
            text += "&amp;";
            break;
        case '<':
            text += "&lt;";
            break;
        case '"':
            text += "&quot;";
            break;
        default:
            text += letter;
        }
    text += '"';
}

} // namespace

const QByteArray *SvgElement::Find(const QByteArray &name) const
{
    for (const SvgAttribute &attribute : Attributes)
        if (attribute.Name == name)
            return &attribute.Value;
    return nullptr;
}

QByteArray SvgElement::Value(const QByteArray &name) const
{
    const QByteArray *value = Find(name);
    return value != nullptr ? *value : QByteArray();
}

void SvgElement::Set(const QByteArray &name, const QByteArray &value)
{
    for (SvgAttribute &attribute : Attributes)
        if (attribute.Name == name) {
            attribute.Value = value;
            return;
        }
    Attributes.push_back({name, value});
}

void SvgElement::Remove(const QByteArray &name)
{
    std::erase_if(Attributes,
                  [&name](const SvgAttribute &attribute) { return attribute.Name == name; });
}

bool IsAnimation(const SvgElement &element)
{
    return element.Name == "animate" || element.Name == "animateTransform" || element.Name == "set";
}

QByteArray SvgText(const SvgDocument &document, const std::function<bool(int)> &skipped)
{
    QByteArray text;
    std::vector<int> open;
    const auto closeUpTo = [&](int index) {
        while (!open.empty() && document.Elements[static_cast<size_t>(open.back())].End <= index) {
            text += "</" + document.Elements[static_cast<size_t>(open.back())].Name + '>';
            open.pop_back();
        }
    };
    const int count = static_cast<int>(document.Elements.size());
    for (int index = 0; index < count;) {
        closeUpTo(index);
        const SvgElement &element = document.Elements[static_cast<size_t>(index)];
        if (IsAnimation(element) || (skipped && skipped(index))) {
            index = element.End;
            continue;
        }
        text += '<' + element.Name;
        for (const SvgAttribute &attribute : element.Attributes)
            AppendAttribute(text, attribute.Name, attribute.Value);
        text += '>';
        open.push_back(index);
        ++index;
    }
    closeUpTo(count);
    return text;
}

} // namespace platform
