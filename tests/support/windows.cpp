#include "support/windows.h"

#include "configuration/form_configura.h"
#include "exercises/form_es1.h"
#include "exercises/form_es2.h"
#include "exercises/form_es3.h"
#include "exercises/form_es4.h"
#include "exercises/form_es5.h"
#include "exercises/form_es6.h"
#include "exercises/form_es7.h"
#include "exercises/form_es8.h"
#include "menu/form_menu.h"
#include "printing/frm_stampa.h"
#include "results/form_esercizi_eseguiti.h"
#include "support/windows/form1.h"
#include "support/windows/form_avvio.h"
#include "support/windows/form_info.h"

#include <QMap>

namespace {

using Maker = std::unique_ptr<platform::Form> (*)();

template <typename Window> std::unique_ptr<platform::Form> Make()
{
    return std::make_unique<Window>();
}

const QMap<QString, Maker> &Makers()
{
    static const QMap<QString, Maker> makers = {
        {QStringLiteral("FormAvvio"), Make<FormAvvio>},
        {QStringLiteral("FormMenu"), Make<FormMenu>},
        {QStringLiteral("FormConfigura"), Make<FormConfigura>},
        {QStringLiteral("FormInfo"), Make<FormInfo>},
        {QStringLiteral("Form1"), Make<Form1>},
        {QStringLiteral("FormEserciziEseguiti"), Make<FormEserciziEseguiti>},
        {QStringLiteral("frmStampa"), Make<FrmStampa>},
        {QStringLiteral("FormEs1"), Make<FormEs1>},
        {QStringLiteral("FormEs2"), Make<FormEs2>},
        {QStringLiteral("FormEs3"), Make<FormEs3>},
        {QStringLiteral("FormEs4"), Make<FormEs4>},
        {QStringLiteral("FormEs5"), Make<FormEs5>},
        {QStringLiteral("FormEs6"), Make<FormEs6>},
        {QStringLiteral("FormEs7"), Make<FormEs7>},
        {QStringLiteral("FormEs8"), Make<FormEs8>},
    };
    return makers;
}

} // namespace

QStringList WindowNames()
{
    return Makers().keys();
}

std::unique_ptr<platform::Form> MakeWindow(const QString &name)
{
    const Maker maker = Makers().value(name);
    return maker == nullptr ? nullptr : maker();
}
