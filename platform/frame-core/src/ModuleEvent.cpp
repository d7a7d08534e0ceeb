#include "frame-core/ModuleEvent.h"

ModuleEvent::ModuleEvent(const QString& sender, const QString& name, const QVariantList& arguments)
    : m_sender(sender), m_name(name), m_arguments(arguments)
{}

QString ModuleEvent::GetSender() const
{
    return m_sender;
}

QString ModuleEvent::GetName() const
{
    return m_name;
}

QVariantList ModuleEvent::GetArguments() const
{
    return m_arguments;
}
