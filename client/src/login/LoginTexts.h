#pragma once

#include "login/LoginProblem.h"

#include <QtCore/QCoreApplication>

/// The sentences that the log-in dialog shows, in the current language.
class LoginTexts final
{
    Q_DECLARE_TR_FUNCTIONS(LoginTexts)

public:
    LoginTexts() = delete;

    /// Empty for no problem.
    static QString Describe(const LoginProblem& problem);
};
