// A drawing as a plain list of elements in the order of the file: only what the drawings of this
// program are made of gets in, so that nothing a file says can reach other files or run away.
#pragma once

#include <QByteArray>
#include <QHash>
#include <QRectF>

#include <functional>
#include <optional>
#include <vector>

namespace platform {

struct SvgAttribute {
    QByteArray Name;
    QByteArray Value;
};

struct SvgElement {
    QByteArray Name;
    std::vector<SvgAttribute> Attributes;
    int Parent = -1; // of the root
    int End = 0;     // one behind the last element inside

    // Null when the element has no such attribute.
    const QByteArray *Find(const QByteArray &name) const;
    QByteArray Value(const QByteArray &name) const;
    void Set(const QByteArray &name, const QByteArray &value);
    void Remove(const QByteArray &name);
};

// Copying makes a copy of one's own.
struct SvgDocument {
    QRectF ViewBox;
    std::vector<SvgElement> Elements;
    QHash<QByteArray, int> Ids;

    int Index(const QByteArray &id) const { return Ids.value(id, -1); }
};

// Largest file that is looked at, in bytes.
constexpr qint64 LargestSvg = qint64{8} * 1024 * 1024;

// Nothing for what is no drawing, is damaged, or is larger or deeper than a drawing needs. Style
// attributes become plain attributes; scripts, style sheets, texts, dashes, filters, copies and
// pictures are left out.
std::optional<SvgDocument> ParseSvg(const QByteArray &content);

bool IsAnimation(const SvgElement &element);

// The document as text for the renderer. Elements that `skipped` names are left out with all in
// them; animations always are.
QByteArray SvgText(const SvgDocument &document,
                   const std::function<bool(int index)> &skipped = nullptr);

} // namespace platform
