#include "platform/controls/label.h"

#include "platform/base/page.h"
#include "platform/controls/form_window.h"

#include <QFont>
#include <QFontMetrics>
#include <QLabel>
#include <QPainter>

#include <algorithm>
#include <memory>
#include <vector>

namespace platform {

// A QLabel, so that a screen reader finds a label and its text.
class LabelView : public QLabel {
public:
    explicit LabelView(Alignment alignment)
        : m_alignment(alignment), m_together(std::make_shared<Together>(Together{this}))
    {
        setTextFormat(Qt::PlainText);
        DrawnAs(*this, QAccessible::StaticText);
    }
    ~LabelView() override { std::erase(*m_together, this); }
    LabelView(const LabelView &) = delete;
    LabelView &operator=(const LabelView &) = delete;

    void Show(const Font &font, Color back, Color fore)
    {
        const bool letters = font != m_font;
        m_font = font;
        m_back = back;
        m_fore = fore;
        letters ? TextChanged() : update();
    }
    void Write(const QString &text)
    {
        setText(text);
        TextChanged();
    }
    void SetFramed(bool framed)
    {
        m_framed = framed;
        TextChanged();
    }
    void SetTransparent(bool transparent)
    {
        m_transparent = transparent;
        TextChanged();
    }
    void ShareSize(const LabelView &other)
    {
        std::erase(*m_together, this);
        m_together = other.m_together;
        m_together->push_back(this);
        TextChanged();
    }

    // In the size that suits all that share it.
    const FittedText &Laid() const
    {
        if (m_together->size() == 1)
            return Own();
        if (m_laid == nullptr) {
            Font letters = m_font;
            for (const LabelView *label : *m_together)
                letters.Size = std::min(letters.Size, label->Own().Drawn().Points);
            m_laid = std::make_unique<FittedText>(text(), letters, Room().size(), Flags());
        }
        return *m_laid;
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        if (m_framed)
            DrawPage(painter, rect(), m_back);
        else if (!m_transparent)
            painter.fillRect(rect(), ToQColor(m_back));
        painter.setPen(isEnabled() ? ToQColor(m_fore) : ToQColor(0x80000011));
        Laid().Draw(painter, Room().topLeft());
    }
    void resizeEvent(QResizeEvent *event) override
    {
        QLabel::resizeEvent(event);
        TextChanged();
    }

private:
    using Together = std::vector<LabelView *>;

    // What one of several needs may change the size of all.
    void TextChanged()
    {
        m_own.reset();
        for (LabelView *label : *m_together) {
            label->m_laid.reset();
            label->update();
        }
    }

    const FittedText &Own() const
    {
        if (m_own == nullptr)
            m_own = std::make_unique<FittedText>(text(), m_font, Room().size(), Flags());
        return *m_own;
    }

    QRect Room() const
    {
        // A low label needs all of its height.
        const int margin = m_framed        ? PageMargin(size())
                           : m_transparent ? 0
                                           : std::clamp((height() - 40) / 4, 0, 6);
        return rect().adjusted(margin, margin, -margin, -margin);
    }

    int Flags() const
    {
        switch (m_alignment) {
        case Alignment::Right:
            return Qt::AlignRight | Qt::AlignTop;
        case Alignment::Center:
            return Qt::AlignHCenter | Qt::AlignTop;
        case Alignment::Left:
            break;
        }
        return Qt::AlignLeft | Qt::AlignTop;
    }

    Alignment m_alignment;
    Font m_font;
    Color m_back = SystemButtonFace;
    Color m_fore = SystemButtonText;
    bool m_framed = false;
    bool m_transparent = false;
    std::shared_ptr<Together> m_together;       // itself too
    mutable std::unique_ptr<FittedText> m_own;  // by itself; nothing after a change
    mutable std::unique_ptr<FittedText> m_laid; // as drawn; the same
};

Label::Label(const ControlId &id, const Place &place, const QString &caption, Alignment alignment)
    : VisualControl(id, place, new LabelView(alignment)), m_view(static_cast<LabelView *>(Widget()))
{
    m_view->Write(caption);
}

QString Label::Caption() const
{
    return m_view->text();
}

void Label::SetCaption(const QString &caption)
{
    m_view->Write(caption);
    Note("Caption", caption);
    Label::Refresh();
}

void Label::SetFramed(bool framed)
{
    m_view->SetFramed(framed);
}

void Label::SetTransparent(bool transparent)
{
    m_view->SetTransparent(transparent);
}

void Label::ShareSize(const Label &other)
{
    m_view->ShareSize(*other.m_view);
}

DrawnText Label::Drawn() const
{
    return m_view->Laid().Drawn();
}

void Label::SetAutoSize(bool autoSize)
{
    m_autoSize = autoSize;
    Label::Refresh();
}

void Label::Refresh()
{
    m_view->Show(Font(), BackColor(), ForeColor());
    if (m_autoSize) {
        const QFontMetrics metrics(ToQFont(Font(), Font().Size));
        m_place.Width = metrics.horizontalAdvance(Caption()) * TwipsPerPixel;
        m_place.Height = metrics.height() * TwipsPerPixel;
        PutInPlace();
    }
}

} // namespace platform
