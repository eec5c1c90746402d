#include "platform/machine/font_dialog.h"

#include "platform/base/font.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFont>
#include <QFontDatabase>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRawFont>
#include <QVBoxLayout>

namespace platform {

namespace {

constexpr int FamilyPixels = 22; // of a family's name written in itself

// For those who learn to read, the best first: "I", "l" and "1" are told apart, and in all but the
// last an "a" is as a child writes it.
constexpr const char *ForLearners[] = {"Andika",     "Andika New Basic", "Andika Compact",
                                       "Comic Neue", "OpenDyslexicAlta", "OpenDyslexic"};

QListWidget *NamedList(const QString &name, const QString &spoken)
{
    auto *list = new QListWidget;
    list->setObjectName(name);
    list->setAccessibleName(spoken);
    return list;
}

// A line that cannot be chosen; the arrow keys pass over it.
void AddHeading(QListWidget &list, const QString &text)
{
    auto *heading = new QListWidgetItem(text, &list);
    heading->setFlags(Qt::NoItemFlags);
    heading->setForeground(list.palette().text());
    QFont font = list.font();
    font.setBold(true);
    heading->setFont(font);
}

void AddFamily(QListWidget &list, const QString &family)
{
    auto *item = new QListWidgetItem(family, &list);
    QFont font(family);
    font.setPixelSize(FamilyPixels);
    item->setFont(font);
}

QCheckBox *NamedBox(const QString &name, const QString &caption)
{
    auto *box = new QCheckBox(caption);
    box->setObjectName(name);
    return box;
}

// Whether it can write the languages of the program. Some fonts of signs say that they can, so the
// letters are looked at: an accent stands above its letter, and "m" is wider than "i".
bool WritesLetters(const QRawFont &font)
{
    const QString letters = QStringLiteral("àami");
    for (const QChar letter : letters)
        if (!font.supportsCharacter(letter))
            return false;
    const auto glyphs = font.glyphIndexesForString(letters);
    if (glyphs.size() != letters.size())
        return false;
    const auto box = [&](qsizetype letter) { return font.boundingRect(glyphs.at(letter)); };
    return box(0).height() > 1.1 * box(1).height() && box(2).width() > 1.1 * box(3).width();
}

} // namespace

FontDialog::FontDialog(QWidget *parent)
    : QDialog(parent),
      m_families(NamedList(QStringLiteral("Families"), QStringLiteral("Tipo di carattere"))),
      m_order(new QLabel(m_families->accessibleName())),
      m_sizes(NamedList(QStringLiteral("Sizes"), QStringLiteral("Grandezza"))),
      m_bold(NamedBox(QStringLiteral("Bold"), QStringLiteral("Grassetto"))),
      m_italic(NamedBox(QStringLiteral("Italic"), QStringLiteral("Inclinato"))),
      m_underline(NamedBox(QStringLiteral("Underline"), QStringLiteral("Sottolineato"))),
      m_sample(new QLabel)
{
    setWindowTitle(QStringLiteral("Font"));
    auto *buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    m_ok = buttons->button(QDialogButtonBox::Ok);
    m_sample->setObjectName(QStringLiteral("Sample"));
    m_sample->setAlignment(Qt::AlignCenter);
    m_sample->setFixedHeight(110);
    m_sample->setFrameShape(QFrame::StyledPanel);
    m_sizes->setMaximumWidth(140);

    auto *grid = new QGridLayout;
    grid->addWidget(m_order, 0, 0);
    grid->addWidget(new QLabel(m_sizes->accessibleName()), 0, 1);
    grid->addWidget(m_families, 1, 0);
    grid->addWidget(m_sizes, 1, 1);
    auto *styles = new QHBoxLayout;
    for (QCheckBox *box : {m_bold, m_italic, m_underline})
        styles->addWidget(box);
    auto *page = new QVBoxLayout(this);
    page->addLayout(grid);
    page->addLayout(styles);
    page->addWidget(m_sample);
    page->addWidget(buttons);
    resize(560, 620);

    Fill();
    for (const QListWidget *list : {m_families, m_sizes})
        connect(list, &QListWidget::itemSelectionChanged, this, [this] { Update(); });
    for (const QCheckBox *box : {m_bold, m_italic, m_underline})
        connect(box, &QCheckBox::toggled, this, [this] { Update(); });
    connect(m_families, &QListWidget::itemDoubleClicked, m_ok, &QPushButton::click);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    Update();
}

void FontDialog::Fill()
{
    QStringList others;
    for (const QString &family : QFontDatabase::families(QFontDatabase::Latin))
        if (!QFontDatabase::isPrivateFamily(family) &&
            WritesLetters(QRawFont::fromFont(QFont(family))))
            others << family;
    QStringList suggested;
    for (const char *const family : ForLearners)
        if (others.removeOne(QLatin1String(family)))
            suggested << QLatin1String(family);
    for (const QString &family : suggested)
        AddFamily(*m_families, family);
    if (!suggested.isEmpty()) {
        AddHeading(*m_families, QStringLiteral("Gli altri"));
        m_order->setText(m_order->text() +
                         QStringLiteral(": in alto quelli per chi impara a leggere"));
    }
    for (const QString &family : others)
        AddFamily(*m_families, family);
    for (const int size :
         {8, 9, 10, 11, 12, 14, 16, 18, 20, 22, 24, 26, 28, 32, 36, 40, 48, 60, 72})
        m_sizes->addItem(QString::number(size));
}

void FontDialog::Update()
{
    const FontChoice chosen = Chosen();
    const bool complete = !chosen.Name.isEmpty() && chosen.Size > 0;
    m_ok->setEnabled(complete);
    m_sample->setFont(
        complete ? ToQFont({chosen.Name, chosen.Size, chosen.Bold, chosen.Italic, chosen.Underline},
                           chosen.Size)
                 : font());
    m_sample->setText(complete ? QStringLiteral("La porta è rossa")
                               : QStringLiteral("Scegli un tipo di carattere e una grandezza."));
}

FontChoice FontDialog::Chosen() const
{
    const auto text = [](const QListWidget *list) {
        const QList<QListWidgetItem *> items = list->selectedItems();
        return items.isEmpty() ? QString() : items.first()->text();
    };
    return {text(m_families), text(m_sizes).toDouble(), m_bold->isChecked(), m_italic->isChecked(),
            m_underline->isChecked()};
}

} // namespace platform
