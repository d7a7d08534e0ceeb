#pragma once

#include "frame-core/FrameCoreExport.h"

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtCore/QVariantList>

/// Something that a module tells the rest of the client. A value.
class TL_FRAME_CORE_EXPORT ModuleEvent final
{
public:
    /// `sender` is the key of the sending module; `arguments` may be empty.
    ModuleEvent(const QString& sender, const QString& name, const QVariantList& arguments);

    QString GetSender() const;
    QString GetName() const;
    QVariantList GetArguments() const;

private:
    QString m_sender;
    QString m_name;
    QVariantList m_arguments;
};
