#pragma once

#include <QtCore/QProcess>
#include <QtCore/QStringList>

/// Another process that has a store open. It is killed at the end of the object, at the latest.
class SettingsStoreProcess final
{
public:
    /// `arguments` are those of the program (SettingsStoreChild.cpp).
    explicit SettingsStoreProcess(const QStringList& arguments);
    ~SettingsStoreProcess();

    SettingsStoreProcess(const SettingsStoreProcess&) = delete;
    SettingsStoreProcess& operator=(const SettingsStoreProcess&) = delete;

    /// The next line that it says; empty when there is none within 20 s.
    QString ReadLine();
    /// Lets it run for some time [ms], unless it ends by itself before.
    void LetRun(int time);
    /// SIGKILL, or what the system has in its place.
    void Kill();
    /// Lets it end in order. False when it does not.
    bool Finish();
    /// All lines that were not read yet, without one that is not whole. Once it has ended.
    QStringList ReadRest();

private:
    QProcess m_process;
};
