#include "StoreRound.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QCoreApplication>

#include <cstdio>

namespace {

void Say(const QString& word)
{
    std::puts(qPrintable(word));
    std::fflush(stdout);
}

// Stores values for as long as it lives. Says the number of each step that is on disk.
[[noreturn]] void Work(int firstStep)
{
    VXSettingManager* const store = VXSettingManager::Instance();
    for (int step = firstStep;; ++step) {
        const QString section = StoreRound::GetSection();
        if (step % 3 == 0) {
            store->SetUserValue(section, StoreRound::GetField(step), StoreRound::GetValue(step));
        } else if (store->SetUserValueSync(section, StoreRound::GetField(step), StoreRound::GetValue(step))) {
            Say(QString::number(step));
        } else {
            Say(QStringLiteral("failed"));
        }
    }
}

} // namespace

// <file> hold          opens the store and keeps it open until its input ends
// <file> work <step>   opens the store and works from that step on
int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    TLGlobalData::Instance()->SetUser(QStringLiteral("anna"), QString());
    if (!VXSettingManager::Instance()->Open(arguments.value(1))) {
        Say(QStringLiteral("refused"));
        return 1;
    }
    Say(QStringLiteral("open"));
    if (arguments.value(2) == QLatin1String("work")) {
        Work(arguments.value(3).toInt());
    }
    while (std::getchar() != EOF)
        ;
    return 0;
}
