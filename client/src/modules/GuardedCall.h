#pragma once

#include <QtCore/QString>

#include <exception>

/// Logs that a module's code threw.
void ReportThrown(const QString& module, const char* operation, const char* what);

/// Runs code of a module and logs what it throws. False when it threw.
template <class Call>
bool GuardedCall(const QString& module, const char* operation, Call&& call)
{
    try {
        call();
        return true;
    } catch (const std::exception& exception) {
        ReportThrown(module, operation, exception.what());
    } catch (...) {
        ReportThrown(module, operation, "an exception of an unknown type");
    }
    return false;
}
