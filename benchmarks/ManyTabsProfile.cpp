#include "TabSetText.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>
#include <QtCore/QStringList>
#include <QtCore/QUrl>

#include <cstdio>
#include <cstdlib>

// Changes the settings file of a killed client as if it had had many tabs open:
//   ManyTabsProfile settings.sqlite pin count address
// `count` tabs with pages at address0, address1 and so on, the last one in front. The client must have had a
// tab open, whose record is the pattern for the others.

namespace {

[[noreturn]] void Fail(const char* reason)
{
    std::fprintf(stderr, "%s\n", reason);
    std::exit(1);
}

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 5) {
        Fail("ManyTabsProfile settings.sqlite pin count address");
    }
    const int count = arguments.at(3).toInt();
    const QString address = arguments.at(4);

    TLGlobalData::Instance()->SetUser(arguments.at(2), QString());
    VXSettingManager* const store = VXSettingManager::Instance();
    if (!store->Open(arguments.at(1))) {
        Fail("The settings cannot be opened.");
    }

    const QString section = QStringLiteral("USER_SETTING_RECOVER_SECTION");
    const QString field = QStringLiteral("USER_SETTING_RECOVER_FIELD1");
    const QString list = QStringLiteral("tabRecoverItems");
    QJsonObject record = QJsonDocument::fromJson(store->GetUserValue(section, field).toUtf8()).object();
    const QJsonObject pattern = record.value(list).toArray().at(0).toObject();
    if (pattern.isEmpty()) {
        store->Close();
        Fail("No tab was open in this profile.");
    }

    QJsonArray items;
    TabSet tabs;
    tabs.when = QDateTime::currentDateTimeUtc();
    tabs.current = count - 1;
    for (int i = 0; i < count; ++i) {
        const QString page = address + QString::number(i);
        const QString routerUrl =
            QStringLiteral("tl://browser/open?url=") + QString::fromLatin1(QUrl::toPercentEncoding(page));
        QJsonObject item = pattern;
        item.insert(QStringLiteral("routerUrl"), routerUrl);
        items.append(item);
        tabs.tabs.append({routerUrl, QStringLiteral("Page %1").arg(i), QString(), 0});
    }
    record.insert(list, items);
    const QString text = QString::fromUtf8(QJsonDocument(record).toJson(QJsonDocument::Compact));
    if (!store->SetUserValueSync(section, field, text) ||
        !store->SetUserValueSync(QStringLiteral("CLIENT"), QStringLiteral("RUNNING_TABS"),
                                 TabSetText::Write(tabs))) {
        Fail("The settings cannot be written.");
    }
    store->Close();
}
