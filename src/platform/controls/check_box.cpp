#include "platform/controls/check_box.h"

#include "platform/controls/choice_view.h"

#include <QCheckBox>
#include <QKeySequence>

namespace platform {

namespace {

using CheckView = ChoiceView<QCheckBox, ChoiceMark::Tick>;

CheckView &View(const CheckBox &box)
{
    return *static_cast<CheckView *>(box.Widget());
}

// "&" stands before the letter that ticks it with Alt.
void Show(CheckView &view, const QString &caption)
{
    view.Look.Caption = caption;
    view.setAccessibleName(QString(caption).remove(QLatin1Char('&')));
    view.setShortcut(QKeySequence::mnemonic(caption));
}

} // namespace

CheckBox::CheckBox(const ControlId &id, const Place &place, const QString &caption)
    : VisualControl(id, place, new CheckView)
{
    TellsItsClicks();
    SetTabStop(true);
    Show(View(*this), caption);
    QObject::connect(&View(*this), &QCheckBox::clicked, Widget(), [this] {
        Note("Value", Value());
        Click();
    });
}

bool CheckBox::Value() const
{
    return View(*this).isChecked();
}

void CheckBox::SetValue(bool ticked)
{
    if (ticked == Value())
        return;
    View(*this).setChecked(ticked);
    Note("Value", ticked);
    Click();
}

QString CheckBox::Caption() const
{
    return View(*this).Look.Caption;
}

void CheckBox::SetCaption(const QString &caption)
{
    Show(View(*this), caption);
    Note("Caption", caption);
    Widget()->update();
}

void CheckBox::Refresh()
{
    View(*this).Look = {Caption(), Font(), BackColor(), ForeColor()};
    Widget()->update();
}

} // namespace platform
