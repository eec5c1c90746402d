#include "core/windows.h"

#include "platform/base/errors.h"

#include <map>

using namespace platform;

namespace {

std::map<QString, CreaFinestra> &Finestre()
{
    static std::map<QString, CreaFinestra> finestre;
    return finestre;
}

// Made when it is not loaded.
Form &Finestra(const QString &nome)
{
    if (Form *finestra = Form::Find(nome))
        return *finestra;
    const auto crea = Finestre().find(nome);
    if (crea == Finestre().end())
        throw RunTimeError(BadCall, nome);
    return *crea->second();
}

} // namespace

void RegistraFinestra(const QString &nome, CreaFinestra crea)
{
    Finestre()[nome] = crea;
}

void MostraFinestra(const QString &nome)
{
    Finestra(nome).Show();
}

void MostraFinestraModale(const QString &nome)
{
    Finestra(nome).ShowModal();
}

void ScaricaFinestra(const QString &nome)
{
    if (Form *finestra = Form::Find(nome))
        finestra->Unload();
}
