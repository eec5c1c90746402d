#include "platform/controls/spoken_control.h"

#include <QAccessibleWidget>
#include <QCoreApplication>
#include <QLabel>

namespace platform {

namespace {

// Properties of the widget.
constexpr const char *DrawnRole = "drawnRole";
constexpr const char *ItsControl = "itsControl";

class SpokenControl : public QAccessibleWidget {
public:
    SpokenControl(QWidget *widget, Pressable &control)
        : QAccessibleWidget(widget), m_control(control)
    {
    }

    QAccessible::Role role() const override
    {
        return m_control.TakesClicks()
                   ? QAccessible::Button
                   : static_cast<QAccessible::Role>(widget()->property(DrawnRole).toInt());
    }
    QString text(QAccessible::Text kind) const override
    {
        const QString name = QAccessibleWidget::text(kind);
        const auto *label = qobject_cast<const QLabel *>(widget());
        return kind == QAccessible::Name && name.isEmpty() && label != nullptr ? label->text()
                                                                               : name;
    }
    QStringList actionNames() const override
    {
        QStringList names = QAccessibleWidget::actionNames();
        if (m_control.TakesClicks() && widget()->isEnabled())
            names.prepend(pressAction());
        return names;
    }
    void doAction(const QString &name) override
    {
        if (name != pressAction())
            return QAccessibleWidget::doAction(name);
        QCoreApplication::postEvent(widget(), new QEvent(PressAsked));
    }

private:
    Pressable &m_control; // goes together with its widget
};

QAccessibleInterface *Make(const QString &, QObject *object)
{
    auto *control = static_cast<Pressable *>(object->property(ItsControl).value<void *>());
    return control == nullptr ? nullptr
                              : new SpokenControl(qobject_cast<QWidget *>(object), *control);
}

} // namespace

void DrawnAs(QWidget &widget, QAccessible::Role role)
{
    widget.setProperty(DrawnRole, static_cast<int>(role));
}

void LetBePressed(QWidget &widget, Pressable &control)
{
    if (!widget.property(DrawnRole).isValid())
        return;
    QAccessible::installFactory(Make); // the same again changes nothing
    widget.setProperty(ItsControl, QVariant::fromValue<void *>(&control));
}

} // namespace platform
