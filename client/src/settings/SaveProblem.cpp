#include "SaveProblem.h"

#include "http/HttpError.h"

QString SaveProblem::Describe(const QString& code, const QString& description)
{
    bool isNumber = false;
    const int number = code.toInt(&isNumber);
    if (isNumber && number == static_cast<int>(HttpError::Timeout)) {
        return tr("The gateway did not answer in time.");
    }
    if (isNumber && number < 1000) {
        return tr("The gateway cannot be reached.");
    }
    if (isNumber && number >= 5000) {
        return tr("The gateway could not store it.");
    }
    if (isNumber && number >= 2002 && number <= 2005) {
        return tr("The session is no longer valid.");
    }
    if (isNumber && !description.isEmpty()) {
        return tr("The gateway refused it: %1").arg(description);
    }
    return tr("The gateway's answer could not be understood.");
}

bool SaveProblem::IsOfContent(const QString& code)
{
    // Lower codes are about key, sign, clock and method, and 1012 about the address: no entry is to blame.
    const int number = code.toInt();
    return number >= 1008 && number <= 1999 && number != 1012;
}
