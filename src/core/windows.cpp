#include "core/windows.h"

#include "platform/errors.h"

#include <map>

using namespace platform;

namespace {

std::map<QString, CreaFinestra> &Finestre()
{
    static std::map<QString, CreaFinestra> finestre;
    return finestre;
}

} // namespace

void RegistraFinestra(const QString &nome, CreaFinestra crea)
{
    Finestre()[nome] = crea;
}

bool FinestraEsiste(const QString &nome)
{
    return Finestre().contains(nome);
}

void MostraFinestra(const QString &nome)
{
    Form *finestra = Form::Find(nome);
    if (finestra == nullptr) {
        if (!FinestraEsiste(nome))
            throw RunTimeError(BadCall, nome);
        finestra = Finestre().at(nome)();
    }
    finestra->Show();
}

void ScaricaFinestra(const QString &nome)
{
    if (Form *finestra = Form::Find(nome))
        finestra->Unload();
}
