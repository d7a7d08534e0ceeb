#pragma once

#include "login/LoginProblem.h"

#include <QtCore/QCoreApplication>

/// The sentences of the log-in, in the language of the moment.
class LoginTexts final
{
    Q_DECLARE_TR_FUNCTIONS(LoginTexts)

public:
    LoginTexts() = delete;

    /// Empty for no problem.
    static QString Describe(const LoginProblem& problem);
};
