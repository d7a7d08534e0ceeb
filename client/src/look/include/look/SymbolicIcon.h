#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

/// The client's own one-colour icons. They are drawn in the colour that the application's palette has for
/// button texts at the time of painting, so a change of theme recolours those already shown.
class SymbolicIcon final
{
public:
    SymbolicIcon() = delete;

    /// `name` is that of a file in `:/icons/`, without suffix.
    static QIcon Make(const QString& name);
};
