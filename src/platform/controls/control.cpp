#include "platform/controls/control.h"

#include "platform/controls/form.h"
#include "platform/host/host.h"

namespace platform {

Control::Control(const ControlId &id)
    : m_form(id.Parent), m_name(QString::fromLatin1(id.Name)), m_key(m_name), m_index(id.Index)
{
    if (m_index >= 0)
        m_key += QStringLiteral("(%1)").arg(m_index);
    m_form.m_controls.push_back(this);
}

Control::~Control()
{
    std::erase(m_form.m_controls, this);
}

int Control::Index() const
{
    if (m_index < 0)
        throw RunTimeError(NotAnArray, m_name);
    return m_index;
}

void Control::SetSpokenName(const QString &name)
{
    m_spokenName = name;
    Speak(name);
}

void Control::TranslateSpokenName(const QString &name)
{
    Speak(name.isEmpty() ? m_spokenName : name);
}

void Control::Note(const char *property, const QString &value) const
{
    if (host().Watches())
        host().Changed(m_key + QLatin1Char('.') + QLatin1String(property) + QLatin1Char('=') +
                       value);
}

void Control::Note(const char *property, bool value) const
{
    Note(property, value ? QStringLiteral("True") : QStringLiteral("False"));
}

} // namespace platform
