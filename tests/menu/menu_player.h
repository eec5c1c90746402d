// A player at the menu, for the tests of the menu.
#pragma once

#include "configuration/form_configura.h"
#include "core/palette.h"
#include "exercises/exercise_table.h"
#include "menu/form_menu.h"
#include "results/form_esercizi_eseguiti.h"
#include "support/exercise_fixture.h"
#include "support/windows/form_info.h"

#include <QAction>
#include <QDir>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

inline const QString Settings = QStringLiteral("ImpostazioniProgrammiTesmi/morlenekvt/");

class MenuPlayer : public Player {
public:
    MenuPlayer()
    {
        RegistraEsercizi();
        RegistraFinestra(QStringLiteral("FormConfigura"),
                         []() -> platform::Form * { return new FormConfigura; });
        RegistraFinestra(QStringLiteral("FormEserciziEseguiti"),
                         []() -> platform::Form * { return new FormEserciziEseguiti; });
        RegistraFinestra(QStringLiteral("FormInfo"),
                         []() -> platform::Form * { return new FormInfo; });
        PreparaColoriWeb();
        QDir().mkpath(Host.Drive.filePath(Settings));
    }

    FormMenu &OpenMenu()
    {
        auto *menu = new FormMenu;
        menu->Show();
        QCoreApplication::processEvents();
        Host.TakeEvents();
        return *menu;
    }

    // Saves the settings in force as the profile of a player.
    void Save(const QString &name) const
    {
        const QString file = FileUtente;
        FileUtente = QStringLiteral("C:\\ImpostazioniProgrammiTesmi\\morlenekvt\\") + name +
                     QStringLiteral(".ini");
        SalvaImpostazioni();
        FileUtente = file;
    }
};

// The items that are lit.
inline QList<int> Lit(const FormMenu &menu)
{
    QList<int> lit;
    for (platform::Label &item : menu.Command1)
        if (item.BackColor() == platform::ToColor(ColorePulsantiSelezionati))
            lit << item.Index();
    return lit;
}

// Clicks an item of the menu bar by its design name, opening the menu it stands in.
inline void ClickInMenuBar(platform::Form &form, const QString &name)
{
    const auto press = [&](QWidget *widget, const QRect &where) {
        QTest::mouseClick(widget, Qt::LeftButton, {}, where.center());
    };
    QMenuBar *bar = form.MenuBar();
    for (QAction *top : bar->actions()) {
        if (top->objectName() == name)
            return press(bar, bar->actionGeometry(top));
        if (top->menu() == nullptr)
            continue;
        for (QAction *item : top->menu()->actions()) {
            if (item->objectName() != name)
                continue;
            press(bar, bar->actionGeometry(top));
            return press(top->menu(), top->menu()->actionGeometry(item));
        }
    }
    QTest::qFail(qPrintable(QStringLiteral("no such item: ") + name), __FILE__, __LINE__);
}
