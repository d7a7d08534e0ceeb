#pragma once

#include <QtCore/QString>

/// What a message page says; plain text. All but icon and headline may be empty, and are not shown then.
struct MessageContent
{
    QString icon{}; ///< as for `SymbolicIcon`
    QString headline{};
    QString text{};
    QString address{};
    QString detail{};
    QString button{};
};
