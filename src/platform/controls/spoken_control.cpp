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
    explicit SpokenControl(QWidget *widget) : QAccessibleWidget(widget) {}

    QAccessible::Role role() const override
    {
        return TakesClicks()
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
        if (TakesClicks() && widget()->isEnabled())
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
    bool TakesClicks() const
    {
        const auto *control =
            static_cast<Pressable *>(widget()->property(ItsControl).value<void *>());
        return control != nullptr && control->TakesClicks();
    }
};

QAccessibleInterface *Make(const QString &, QObject *object)
{
    return object->property(DrawnRole).isValid()
               ? new SpokenControl(qobject_cast<QWidget *>(object))
               : nullptr;
}

} // namespace

void DrawnAs(QWidget &widget, QAccessible::Role role)
{
    QAccessible::installFactory(Make); // the same again changes nothing
    widget.setProperty(DrawnRole, static_cast<int>(role));
}

void LetBePressed(QWidget &widget, Pressable &control)
{
    widget.setProperty(ItsControl, QVariant::fromValue<void *>(&control));
}

} // namespace platform
