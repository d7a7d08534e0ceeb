#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

/// Why a change could not be saved, for a person.
class SaveProblem final
{
    Q_DECLARE_TR_FUNCTIONS(SaveProblem)

public:
    SaveProblem() = delete;

    /// `code` and `description` are those of the call's response; both may be empty. A sentence, in the
    /// current language.
    static QString Describe(const QString& code, const QString& description);
    /// Whether the gateway refused what the change contains, so that it refuses the next one with it as well.
    static bool IsOfContent(const QString& code);
};
