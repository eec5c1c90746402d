// Reads a drawing from bytes that anybody may have written: every size is bounded before the
// renderer sees it.
#include "platform/movies/svg_document.h"

#include "platform/movies/svg_values.h"

#include <QSet>
#include <QStringDecoder>
#include <QXmlStreamReader>

#include <utility>

namespace platform {
namespace {

constexpr int DeepestElement = 64;
constexpr int MostTokens = 200000;
constexpr int MostAttributes = 200; // of one tag: the XML reader compares each with each
constexpr size_t MostElements = 5000;
constexpr qint64 MostDrawingBytes = qint64{1} << 20; // of all attributes

const QSet<QByteArray> &KnownElements()
{
    static const QSet<QByteArray> names =
        Names("svg g defs path rect circle ellipse line polyline polygon linearGradient "
              "radialGradient stop set animate animateTransform");
    return names;
}

// Those that may stand in a style attribute as well.
const QSet<QByteArray> &PaintAttributes()
{
    static const QSet<QByteArray> names =
        Names("fill fill-opacity fill-rule stroke stroke-width stroke-opacity stroke-linecap "
              "stroke-linejoin stroke-miterlimit opacity display visibility color stop-color "
              "stop-opacity");
    return names;
}

const QSet<QByteArray> &PlainAttributes()
{
    static const QSet<QByteArray> names =
        Names("id d points x y x1 y1 x2 y2 cx cy r rx ry fx fy width height transform offset "
              "viewBox gradientTransform gradientUnits spreadMethod attributeName begin dur values "
              "keyTimes keySplines from to calcMode repeatCount type");
    return names;
}

class Parser {
public:
    explicit Parser(const QString &text) : m_xml(text) {}

    std::optional<SvgDocument> Run();

private:
    bool Token();
    bool Start();
    void TakeAttributes(SvgElement &element);
    void TakeStyle(SvgElement &element, const QByteArray &style) const;
    bool Finish();
    bool TakeViewBox();

    QXmlStreamReader m_xml;
    SvgDocument m_document;
    std::vector<int> m_open;
    int m_depth = 0;
    int m_skippedFrom = 0; // depth of the unknown element that we are in, 0 for none
    qint64 m_bytes = 0;
};

std::optional<SvgDocument> Parser::Run()
{
    for (int tokens = 0; !m_xml.atEnd(); ++tokens)
        if (tokens == MostTokens || !Token())
            return std::nullopt;
    if (m_xml.hasError() || !Finish())
        return std::nullopt;
    return std::move(m_document);
}

bool Parser::Token()
{
    switch (m_xml.readNext()) {
    case QXmlStreamReader::DTD:
        // An internal part of a document type declares entities and defaults: no drawing needs it.
        return !m_xml.text().contains(QLatin1Char('['));
    case QXmlStreamReader::StartElement:
        return Start();
    case QXmlStreamReader::EndElement:
        if (m_skippedFrom == 0) {
            m_document.Elements[static_cast<size_t>(m_open.back())].End =
                static_cast<int>(m_document.Elements.size());
            m_open.pop_back();
        } else if (m_skippedFrom == m_depth) {
            m_skippedFrom = 0;
        }
        --m_depth;
        return true;
    default:
        return true;
    }
}

bool Parser::Start()
{
    ++m_depth;
    if (m_depth > DeepestElement)
        return false;
    if (m_skippedFrom != 0)
        return true;
    const QByteArray name = m_xml.name().toUtf8();
    const bool root = m_depth == 1;
    const bool known = m_xml.namespaceUri().isEmpty() ||
                       m_xml.namespaceUri() == QLatin1String("http://www.w3.org/2000/svg");
    if (root && (name != "svg" || !known))
        return false;
    if (!known || !KnownElements().contains(name) || (name == "svg" && !root)) {
        m_skippedFrom = m_depth;
        return true;
    }
    if (m_document.Elements.size() == MostElements)
        return false;
    SvgElement element;
    element.Name = name;
    element.Parent = root ? -1 : m_open.back();
    TakeAttributes(element);
    for (const SvgAttribute &attribute : element.Attributes) {
        if (attribute.Name != "id" && !NumbersAreSane(attribute.Value))
            return false;
        m_bytes += attribute.Value.size();
    }
    if (m_bytes > MostDrawingBytes)
        return false;
    const int index = static_cast<int>(m_document.Elements.size());
    const QByteArray id = element.Value("id");
    if (!id.isEmpty() && !m_document.Ids.contains(id))
        m_document.Ids.insert(id, index);
    m_document.Elements.push_back(std::move(element));
    m_open.push_back(index);
    return true;
}

void Parser::TakeAttributes(SvgElement &element)
{
    QByteArray style;
    for (const QXmlStreamAttribute &attribute : m_xml.attributes()) {
        const QByteArray name = attribute.name().toUtf8();
        const QByteArray value = attribute.value().toUtf8();
        const bool plain = attribute.namespaceUri().isEmpty();
        // The renderer knows the older name of a reference only.
        if (name == "href" &&
            (plain || attribute.namespaceUri() == QLatin1String("http://www.w3.org/1999/xlink"))) {
            if (value.trimmed().startsWith('#'))
                element.Set("xlink:href", value.trimmed());
        } else if (plain && name == "style") {
            style = value;
        } else if (plain &&
                   (PlainAttributes().contains(name) || PaintAttributes().contains(name))) {
            element.Set(name, value.trimmed());
        }
    }
    if (!IsAnimation(element))
        TakeStyle(element, style);
}

void Parser::TakeStyle(SvgElement &element, const QByteArray &style) const
{
    for (const QByteArray &rule : style.split(';')) {
        const qsizetype colon = rule.indexOf(':');
        const QByteArray name = rule.left(colon).trimmed();
        QByteArray value = rule.mid(colon + 1);
        value.replace("!important", "");
        if (colon > 0 && PaintAttributes().contains(name))
            element.Set(name, value.trimmed());
    }
}

bool Parser::Finish()
{
    if (m_document.Elements.empty() || !TakeViewBox())
        return false;
    SvgElement &root = m_document.Elements.front();
    root.Set("xmlns", "http://www.w3.org/2000/svg");
    root.Set("xmlns:xlink", "http://www.w3.org/1999/xlink");
    return true;
}

bool Parser::TakeViewBox()
{
    SvgElement &root = m_document.Elements.front();
    std::vector<double> box;
    if (const QByteArray *viewBox = root.Find("viewBox")) {
        box = NumberList(*viewBox).value_or(std::vector<double>{});
    } else {
        for (const char *name : {"width", "height"}) {
            int position = 0;
            box.push_back(0);
            box.push_back(ScanNumber(root.Value(name), position).value_or(0));
        }
        std::swap(box[1], box[2]); // 0 0 width height
    }
    if (box.size() != 4 || box[2] < 1 || box[3] < 1 || box[2] > 100 * box[3] ||
        box[3] > 100 * box[2])
        return false;
    m_document.ViewBox = {box[0], box[1], box[2], box[3]};
    for (const char *name : {"width", "height", "x", "y", "transform"})
        root.Remove(name);
    QByteArray text;
    for (const double number : box)
        text += QByteArray::number(number, 'g', 12) + ' ';
    root.Set("viewBox", text.trimmed());
    return true;
}

// No tag has more than a few attributes; what has is refused before the XML reader sees it.
bool TagsAreSane(const QByteArray &utf8)
{
    int equals = 0;
    for (const char letter : utf8) {
        if (letter == '<' || letter == '>')
            equals = 0;
        else if (letter == '=' && ++equals > MostAttributes)
            return false;
    }
    return true;
}

} // namespace

std::optional<SvgDocument> ParseSvg(const QByteArray &content)
{
    if (content.size() > LargestSvg)
        return std::nullopt;
    // The encoding that a file names is not asked: names and numbers are plain ASCII.
    const auto encoding = QStringDecoder::encodingForData(content).value_or(QStringDecoder::Utf8);
    QStringDecoder decoder(encoding);
    const QString text = decoder.decode(content);
    if (!text.contains(QLatin1String("<svg")) && !text.contains(QLatin1String(":svg")))
        return std::nullopt;
    if (!TagsAreSane(text.toUtf8()))
        return std::nullopt;
    return Parser(text).Run();
}

} // namespace platform
