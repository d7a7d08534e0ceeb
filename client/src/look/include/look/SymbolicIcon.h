#pragma once

#include <QtCore/QString>
#include <QtGui/QIcon>

/// The client's own one-colour icons. They take the palette's colour for button texts when they are painted,
/// so a change of theme also recolours icons that are already on the screen.
class SymbolicIcon final
{
public:
    SymbolicIcon() = delete;

    /// `name` is a file in `:/icons/`, without its suffix.
    static QIcon Make(const QString& name);
};
