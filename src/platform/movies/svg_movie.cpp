// A movie that is a drawing: the figure, which can be painted, and the rewards, which move.
#include "platform/movies/svg_movie.h"

#include <QColor>
#include <QPainter>
#include <QStringList>

#include <algorithm>
#include <utility>

namespace platform {
namespace {

constexpr int Visibility = 7;
// Sizes of one figure that may be asked about in turn, with smoke and clouds on and off.
constexpr size_t MostPickMaps = 16;
// A drawing of more pieces is painted as one.
constexpr size_t MostParts = 32;

bool IsSixHexDigits(const QByteArray &text)
{
    return text.size() == 6 && std::all_of(text.begin(), text.end(), [](char letter) {
               return (letter >= '0' && letter <= '9') || (letter >= 'a' && letter <= 'f') ||
                      (letter >= 'A' && letter <= 'F');
           });
}

// The texts of what lies directly in the drawing: in a figure these are its parts.
std::vector<QByteArray> PartTexts(const SvgDocument &document, bool canCut)
{
    std::vector<QByteArray> parts;
    for (int index = 1; canCut && index < static_cast<int>(document.Elements.size());
         index = document.Elements[static_cast<size_t>(index)].End) {
        if (parts.size() == MostParts)
            return {SvgText(document)};
        parts.push_back(
            PieceText(document, index, document.Elements[static_cast<size_t>(index)].End));
    }
    return canCut ? parts : std::vector<QByteArray>{SvgText(document)};
}

// Smoke and clouds as a whole can be shown and hidden; all else is the drawing's own.
const char *FirstHidden = "fumo";
const char *SecondHidden = "nuvole";

} // namespace

QRectF Fitted(const QSizeF &picture, const QRectF &target)
{
    const QSizeF size = picture.scaled(target.size(), Qt::KeepAspectRatio);
    return {target.center() - QPointF(size.width() / 2, size.height() / 2), size};
}

SvgMovie::SvgMovie(std::shared_ptr<SvgSource> source)
    : m_source(std::move(source)), m_document(m_source->Document)
{
    m_values = m_source->Animation.At(m_document, 0);
}

void SvgMovie::Paint(QPainter &painter, const QRectF &target)
{
    if (target.isEmpty())
        return;
    const QRectF fitted = Fitted(Size(), target);
    painter.save();
    painter.setClipRect(fitted, Qt::IntersectClip);
    if (Moves() && m_source->CanCut && CanPaintPieces(painter))
        PaintLayers(painter, fitted);
    else
        PaintWhole(painter, fitted);
    painter.restore();
}

SvgDocument SvgMovie::Moment() const
{
    SvgDocument moment = m_document;
    m_source->Animation.Apply(m_values, moment);
    return moment;
}

void SvgMovie::PaintWhole(QPainter &painter, const QRectF &fitted)
{
    m_layers = SvgLayers();
    m_painted = m_values;
    if (m_source->Animation.IsEmpty() && CanPaintPieces(painter))
        return PaintStill(painter, fitted);
    if (m_stale)
        m_renderer.load(SvgText(m_source->Animation.IsEmpty() ? m_document : Moment()));
    m_stale = false;
    m_renderer.render(&painter, fitted);
}

// A figure at rest is laid together of its parts, each drawn once a colour and a size: the next
// figure, and what is only uncovered, cost next to nothing.
void SvgMovie::PaintStill(QPainter &painter, const QRectF &fitted)
{
    if (m_parts.empty())
        m_parts = PartTexts(m_document, m_source->CanCut);
    const QRect box = fitted.toAlignedRect();
    const QRectF inside = fitted.translated(-box.topLeft());
    const QByteArray place = QStringLiteral("%1 %2 %3 %4 ")
                                 .arg(inside.x())
                                 .arg(inside.y())
                                 .arg(inside.width())
                                 .arg(inside.height())
                                 .toUtf8();
    auto &pieces = m_source->Pieces;
    for (const QByteArray &part : m_parts) {
        const QByteArray key = place + part;
        const SvgPiece *piece = pieces.object(key);
        if (piece == nullptr) {
            auto made = std::make_unique<SvgPiece>(PaintPiece(part, inside));
            painter.drawImage(box.topLeft() + made->Corner, made->Picture);
            const auto cost = static_cast<qsizetype>(key.size() + made->Picture.sizeInBytes());
            pieces.insert(key, made.release(), cost);
        } else {
            painter.drawImage(box.topLeft() + piece->Corner, piece->Picture);
        }
    }
}

void SvgMovie::PaintLayers(QPainter &painter, const QRectF &fitted)
{
    const SvgAnimation &animation = m_source->Animation;
    if (m_layers.IsEmpty())
        m_layers = SvgLayers(m_document, animation.Changes({}, m_values));
    Follow(fitted);
    m_layers.Paint(painter);
}

QRect SvgMovie::Follow(const QRectF &fitted)
{
    const std::vector<int> changed = m_source->Animation.Changes(m_painted, m_values);
    m_painted = m_values;
    return m_layers.Follow(fitted, Moment(), changed);
}

QRect SvgMovie::Changed(const QRect &target)
{
    if (!Moves() || m_layers.IsEmpty())
        return target;
    return Follow(Fitted(Size(), target)) & target;
}

bool SvgMovie::Covers(const QRect &part, const QRectF &target) const
{
    return Moves() && !m_layers.IsEmpty() && m_layers.Covers(part) &&
           Fitted(Size(), target).contains(part);
}

void SvgMovie::SetVariable(const QString &name, const QString &value)
{
    if (name == QLatin1String("QualeOggetto"))
        m_object = value.toUtf8();
    else if (name == QLatin1String("TestoColore.QualeColore") && IsSixHexDigits(value.toUtf8()))
        Color('#' + value.toUtf8().toLower());
}

// An inside is filled, an outline drawn; a shade is never painted. What is left open inside the
// object ("none") stays open.
void SvgMovie::Color(const QByteArray &color)
{
    const bool inside = m_object.endsWith(".interno");
    const int index = m_document.Index(m_object);
    if (index < 0 || !(inside || m_object.endsWith(".contorno")))
        return;
    const QByteArray attribute = inside ? "fill" : "stroke";
    auto &elements = m_document.Elements;
    elements[static_cast<size_t>(index)].Set(attribute, color);
    for (int below = index + 1; below < elements[static_cast<size_t>(index)].End; ++below) {
        SvgElement &element = elements[static_cast<size_t>(below)];
        const QByteArray *own = element.Find(attribute);
        if (own != nullptr && *own != "none" && !IsAnimation(element))
            element.Set(attribute, color);
    }
    Repainted();
}

void SvgMovie::Repainted()
{
    m_values = m_source->Animation.At(m_document, m_time);
    m_stale = true;
    m_parts.clear();
    m_layers = SvgLayers();
}

void SvgMovie::SetProperty(const QString &target, int property, const QString &value)
{
    const QByteArray id = target.toUtf8();
    const int index = m_document.Index(id);
    const bool show = value == QLatin1String("1");
    if (property != Visibility || index < 0 || (id != FirstHidden && id != SecondHidden) ||
        !(show || value == QLatin1String("0")))
        return;
    SvgElement &group = m_document.Elements[static_cast<size_t>(index)];
    group.Remove("visibility");
    if (show)
        group.Remove("display");
    else
        group.Set("display", "none");
    Repainted();
}

bool SvgMovie::Advance(int milliseconds)
{
    const int time = std::clamp(milliseconds, 0, Duration());
    if (time == m_time)
        return false;
    m_time = time;
    SvgAnimation::Values values = m_source->Animation.At(m_document, time);
    if (values == m_values)
        return false;
    m_values = std::move(values);
    m_stale = true;
    return true;
}

int SvgMovie::Hit(const QPointF &point, const QRectF &target)
{
    const QRectF fitted = Fitted(Size(), target);
    if (!fitted.contains(point))
        return 0;
    unsigned visible = 0;
    for (size_t number = 0; number < FigureParts.size(); ++number)
        if (IsShown(m_document, m_document.Index(FigureParts[number])))
            visible |= 1U << number;
    const QSize size = QSizeF(fitted.width(), fitted.height())
                           .toSize()
                           .boundedTo({PickMap::LargestSide, PickMap::LargestSide})
                           .expandedTo({1, 1});
    auto &maps = m_source->PickMaps;
    const auto key = std::tuple(size.width(), size.height(), visible);
    auto map = maps.find(key);
    if (map == maps.end()) {
        if (maps.size() >= MostPickMaps)
            maps.clear();
        map = maps.emplace(key, std::make_shared<PickMap>(m_source->Document, size, visible)).first;
    }
    const QPointF inside = point - fitted.topLeft();
    return map->second->At(static_cast<int>(inside.x() * size.width() / fitted.width()),
                           static_cast<int>(inside.y() * size.height() / fitted.height()));
}

// The colour of an inside as it stands in the drawing: its own, else that of what is round it.
QByteArray SvgMovie::ColorOf(const QByteArray &object) const
{
    const auto &elements = m_document.Elements;
    const int index = m_document.Index(object);
    QByteArray color;
    for (int at = index; at >= 0 && color.isEmpty(); at = elements[static_cast<size_t>(at)].Parent)
        color = elements[static_cast<size_t>(at)].Value("fill");
    // A group whose members have colours of their own: the first one's.
    for (int at = index + 1; index >= 0 && at < elements[static_cast<size_t>(index)].End; ++at) {
        const SvgElement &element = elements[static_cast<size_t>(at)];
        const QByteArray own = element.Value("fill");
        if (!own.isEmpty() && own != "none" && !IsAnimation(element)) {
            color = own;
            break;
        }
    }
    const QColor known(QString::fromUtf8(color));
    return known.isValid() ? known.name().mid(1).toUpper().toUtf8() : QByteArray("000000");
}

QString SvgMovie::Description() const
{
    QStringList shown;
    for (const char *part : FigureParts) {
        const QByteArray name = part;
        const bool hideable = name == FirstHidden || name == SecondHidden;
        const int index = m_document.Index(hideable ? name : name + ".interno");
        if (index < 0)
            continue;
        const QByteArray state = hideable ? QByteArray(IsShown(m_document, index) ? "1" : "0")
                                          : ColorOf(name + ".interno");
        shown << QString::fromUtf8(name + ' ' + state);
    }
    return shown.join(QLatin1String(", "));
}

} // namespace platform
