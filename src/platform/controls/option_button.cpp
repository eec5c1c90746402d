#include "platform/controls/option_button.h"

#include "platform/controls/choice_view.h"

#include <QRadioButton>

namespace platform {

namespace {

using OptionView = ChoiceView<QRadioButton, ChoiceMark::Dot>;

OptionView &View(const OptionButton &option)
{
    return *static_cast<OptionView *>(option.Widget());
}

} // namespace

OptionButton::OptionButton(const ControlId &id, const Place &place, const QString &caption)
    : VisualControl(id, place, new OptionView)
{
    TellsItsClicks();
    SetTabStop(true);
    View(*this).Look.Caption = caption;
    View(*this).setAccessibleName(caption);
    QObject::connect(&View(*this), &QRadioButton::clicked, Widget(), [this] {
        Note("Value", true);
        Click();
    });
}

bool OptionButton::Value() const
{
    return View(*this).isChecked();
}

void OptionButton::SetValue(bool chosen)
{
    if (chosen == Value())
        return;
    // The toolkit would not let the last choice go.
    View(*this).setAutoExclusive(chosen);
    View(*this).setChecked(chosen);
    View(*this).setAutoExclusive(true);
    Note("Value", chosen);
    if (chosen)
        Click();
}

QString OptionButton::Caption() const
{
    return View(*this).Look.Caption;
}

void OptionButton::SetCaption(const QString &caption)
{
    View(*this).Look.Caption = caption;
    View(*this).setAccessibleName(caption);
    Note("Caption", caption);
    Widget()->update();
}

void OptionButton::Refresh()
{
    View(*this).Look = {Caption(), Font(), BackColor(), ForeColor()};
    Widget()->update();
}

} // namespace platform
