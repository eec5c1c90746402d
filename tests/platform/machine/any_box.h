// What a person does in the next box, whatever it is.
#pragma once

#include <QApplication>
#include <QDialog>
#include <QTest>
#include <QTimer>

#include <functional>

// A text that would be taken for markup.
inline const QString Markup = QStringLiteral("a<b>.ini & <i>c</i>");

// Does something in the box that opens next, and puts it away.
inline void WhenAnyIsOpen(const std::function<void(QDialog &)> &person)
{
    QTimer::singleShot(0, qApp, [person] {
        auto *box = dynamic_cast<QDialog *>(QApplication::activeModalWidget());
        QVERIFY(box != nullptr);
        person(*box);
        if (box->isVisible())
            box->reject();
    });
}
