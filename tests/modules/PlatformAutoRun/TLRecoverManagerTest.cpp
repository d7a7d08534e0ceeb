#include "TLRecoverManager.h"

#include "QuestionAnswer.h"
#include "TabRecordTest.h"

#include "TLTabRecoverData.h"

#include "core/TLGlobalData.h"
#include "settings-store/VXSettingManager.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>
#include <QtCore/QTranslator>
#include <QtSql/QSqlDatabase>
#include <QtSql/QSqlQuery>
#include <QtWidgets/QApplication>

#include <gtest/gtest.h>

namespace {

class TLRecoverManagerTest : public TabRecordTest
{
protected:
    static TabRecoverItem Item(const char* routerUrl, int type)
    {
        TabRecoverItem item;
        item.routerUrl = QString::fromUtf8(routerUrl);
        item.title = TitleOf(item.routerUrl);
        item.icon = IconOf(item.routerUrl);
        item.type = type;
        return item;
    }

    static void Store(const QString& belongType, const QList<TabRecoverItem>& items)
    {
        TLTabRecoverData data;
        data.belongType = belongType;
        data.tabRecoverItems = items;
        SetRecoverText(QString::fromUtf8(data.ToJson()));
    }

    static QList<TabRecoverItem> StoredItems()
    {
        TLTabRecoverData data;
        EXPECT_TRUE(data.Parse(GetRecoverText().toUtf8()));
        EXPECT_EQ(data.belongType, QStringLiteral("merchant"));
        return data.tabRecoverItems;
    }

    /// As a log-in by hand with a user who would say Yes, but is not asked.
    void ExpectNothingIsOffered(const char* why)
    {
        const QuestionAnswer yes(QStringLiteral("yes_button"));
        EXPECT_FALSE(manager->Recover()) << why;
        EXPECT_EQ(yes.GetQuestions(), QStringList()) << why;
        EXPECT_EQ(routes.GetExecuted(), QStringList()) << why;
    }

    TLRecoverManager* manager = TLRecoverManager::Instance();
    const QList<TabRecoverItem> oneItem{Item("tl://a", 3)};
    const QString merchant = QStringLiteral("merchant");
    const QString before = QStringLiteral("as it was");
};

} // namespace

TEST_F(TLRecoverManagerTest, DeclaresNoSignalSlotOrPropertyAndHasNoParent)
{
    const QMetaObject& metaObject = TLRecoverManager::staticMetaObject;
    EXPECT_STREQ(metaObject.className(), "TLRecoverManager");
    EXPECT_EQ(metaObject.superClass(), &QObject::staticMetaObject);
    EXPECT_EQ(metaObject.methodCount(), metaObject.methodOffset());
    EXPECT_EQ(metaObject.propertyCount(), metaObject.propertyOffset());
    EXPECT_EQ(manager->parent(), nullptr);
    EXPECT_EQ(TLRecoverManager::Instance(), manager);
}

TEST_F(TLRecoverManagerTest, SaveTabsRecordsEveryTabFromTheSecondOnInTabOrder)
{
    AddTab(3, QStringLiteral("tl://z"));
    AddTab(5, QStringLiteral("tl://a"));
    AddTab(4, QStringLiteral("tl://m"));
    AddTab(17, QStringLiteral("tl://z"));
    manager->SaveTabs();
    const QList<TabRecoverItem> expected{Item("tl://z", 3), Item("tl://a", 5), Item("tl://m", 4),
                                         Item("tl://z", 17)};
    EXPECT_EQ(StoredItems(), expected);
}

TEST_F(TLRecoverManagerTest, SaveTabsWritesTheJsonForm)
{
    AddTab(4, QStringLiteral("tl://a"));
    manager->SaveTabs();
    EXPECT_EQ(
        GetRecoverText(),
        QStringLiteral(
            R"({"belongType":"merchant","tabRecoverItems":[{"icon":"https://icons.example.com/?of=tl://a",)"
            R"("routerUrl":"tl://a","title":"Title of tl://a","type":4}]})"));
}

TEST_F(TLRecoverManagerTest, SaveTabsNeverRecordsTheFirstTab)
{
    FakeBrowser other(0);
    const Provided<IBrowserMain> provided(&other);
    AddTab(3, QStringLiteral("tl://home"));
    other.AddTab(browser.GetTab(1)->GetTabData(), QStringLiteral("tl://home"));
    SetRecoverText(before);
    manager->SaveTabs();
    EXPECT_EQ(GetRecoverText(), QString());

    other.AddTab(browser.GetTab(1)->GetTabData(), QStringLiteral("tl://second"));
    manager->SaveTabs();
    ASSERT_EQ(StoredItems().size(), 1);
    EXPECT_EQ(StoredItems().constFirst().routerUrl, QStringLiteral("tl://second"));
}

TEST_F(TLRecoverManagerTest, SaveTabsSkipsATabWithoutRouterUrlAndOneWithoutTabData)
{
    AddTab(3, QString());
    AddTab(3, QStringLiteral("tl://a"));
    AddTabWithoutData(QStringLiteral("tl://b"));
    AddTabWithoutData(QString());
    AddTab(3, QStringLiteral("tl://c"));
    manager->SaveTabs();
    const QList<TabRecoverItem> expected{Item("tl://a", 3), Item("tl://c", 3)};
    EXPECT_EQ(StoredItems(), expected);
}

TEST_F(TLRecoverManagerTest, SaveTabsWithOneTabStoresTheEmptyTextForASignedInUser)
{
    SetRecoverText(before);
    manager->SaveTabs();
    EXPECT_EQ(GetRecoverText(), QString());
}

TEST_F(TLRecoverManagerTest, SaveTabsStoresTheEmptyTextInsteadOfARecordWithoutItems)
{
    SetRecoverText(before);
    AddTab(3, QString());
    AddTabWithoutData(QStringLiteral("tl://b"));
    manager->SaveTabs();
    EXPECT_EQ(GetRecoverText(), QString());
}

TEST_F(TLRecoverManagerTest, SaveTabsWithNothingToRecordStoresNothingWhileNobodyIsSignedIn)
{
    SignOut();
    SetRecoverText(before);
    manager->SaveTabs();
    EXPECT_EQ(GetRecoverText(), before);
}

TEST_F(TLRecoverManagerTest, SaveTabsWithoutABrowserLeavesTheRecordAsItIs)
{
    SetRecoverText(before);
    const Provided<IBrowserMain> noBrowser(nullptr);
    manager->SaveTabs();
    EXPECT_EQ(GetRecoverText(), before);
}

TEST_F(TLRecoverManagerTest, AnsweringYesReopensEveryItemInRecordOrder)
{
    Store(merchant, {Item("tl://z", 3), Item("tl://a", 3), Item("tl://z", 0), Item("tl://b", 1)});
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    EXPECT_TRUE(manager->Recover());
    const QStringList expected{QStringLiteral("tl://z"), QStringLiteral("tl://a"), QStringLiteral("tl://z"),
                               QStringLiteral("tl://b")};
    EXPECT_EQ(routes.GetExecuted(), expected);
    EXPECT_EQ(GetRecoverText(), QString());
}

TEST_F(TLRecoverManagerTest, StoredSampleOfVersion1IsOfferedAndReopened)
{
    SetRecoverText(QString::fromUtf8(ReadSample("recovery-record-v1.json")));
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    EXPECT_TRUE(manager->Recover());
    const QStringList expected{
        QStringLiteral("tl://browser/open?url=https%3A%2F%2Forders.example.com%2F"),
        QStringLiteral("tl://plugin/open?code=stock&isDelay=1&title=Stock%20%22A%22%20%26%20B%5CC"
                       "&icon=https%3A%2F%2Fapps.example.com%2Fstock.png"),
        QStringLiteral("tl://plugin/open?code=ledger&isDelay=1&title=%E8%B4%A6%E6%9C%AC&icon="),
        QStringLiteral("tl://browser/open?url=https%3A%2F%2Fmessages.example.com%2F")};
    EXPECT_EQ(routes.GetExecuted(), expected);
}

TEST_F(TLRecoverManagerTest, AppTabsOfTypes4And5ReopenWithIsDelayTitleAndIconInThatOrder)
{
    for (const int type : {4, 5}) {
        manager->OpenItem(Item("tl://plugin/open?code=stock", type));
        EXPECT_EQ(routes.GetExecuted().constLast(),
                  QStringLiteral("tl://plugin/open?code=stock&isDelay=1"
                                 "&title=Title%20of%20tl%3A%2F%2Fplugin%2Fopen%3Fcode%3Dstock"
                                 "&icon=https%3A%2F%2Ficons.example.com%2F%3Fof%3Dtl%3A%2F%2Fplugin%2Fopen"
                                 "%3Fcode%3Dstock"));
    }
    EXPECT_EQ(routes.GetExecuted().size(), 2);
}

TEST_F(TLRecoverManagerTest, TabOfAnyOtherTypeReopensByItsUrlAlone)
{
    for (const int type : {3, 1, 0, 2, 6, -4, 45}) {
        manager->OpenItem(Item("tl://browser/open?url=https%3A%2F%2Fa%2F", type));
        EXPECT_EQ(routes.GetExecuted().constLast(),
                  QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa%2F"))
            << type;
    }
    EXPECT_EQ(routes.GetExecuted().size(), 7);
}

TEST_F(TLRecoverManagerTest, AnsweringNoClearsTheRecordAndTheNextLoginAsksNothing)
{
    Store(merchant, oneItem);
    {
        const QuestionAnswer no(QStringLiteral("no_button"));
        EXPECT_FALSE(manager->Recover());
        EXPECT_EQ(no.GetQuestions().size(), 1);
    }
    EXPECT_EQ(routes.GetExecuted(), QStringList());
    EXPECT_EQ(GetRecoverText(), QString());
    ExpectNothingIsOffered("the next log-in");
}

TEST_F(TLRecoverManagerTest, ReturnKeyAnswersYes)
{
    Store(merchant, oneItem);
    const QuestionAnswer enter(Qt::Key_Return);
    EXPECT_TRUE(manager->Recover());
    EXPECT_EQ(routes.GetExecuted(), QStringList{QStringLiteral("tl://a")});
}

TEST_F(TLRecoverManagerTest, EscapeKeyReopensNothing)
{
    Store(merchant, oneItem);
    const QuestionAnswer escape(Qt::Key_Escape);
    EXPECT_FALSE(manager->Recover());
    EXPECT_EQ(escape.GetQuestions().size(), 1);
    EXPECT_EQ(routes.GetExecuted(), QStringList());
}

TEST_F(TLRecoverManagerTest, QuestionHasItsTextAndTheButtonsYesAndNo)
{
    Store(merchant, oneItem);
    const QuestionAnswer no(QStringLiteral("no_button"));
    EXPECT_FALSE(manager->Recover());
    ASSERT_EQ(no.GetQuestions().size(), 1);
    EXPECT_TRUE(
        no.GetQuestions().constFirst().split(QLatin1Char('\n')).contains(QStringLiteral("recover the tabs?")))
        << qUtf8Printable(no.GetQuestions().constFirst());
    const QStringList buttons{QStringLiteral("Yes"), QStringLiteral("No")};
    EXPECT_EQ(no.GetButtonTexts().mid(no.GetButtonTexts().size() - 2), buttons);
}

TEST_F(TLRecoverManagerTest, QuestionIsAskedInChineseWithTheModulesTranslation)
{
    QTranslator translator;
    ASSERT_TRUE(translator.load(QStringLiteral(TL_AUTORUN_TRANSLATION)));
    ASSERT_TRUE(QCoreApplication::installTranslator(&translator));
    Store(merchant, oneItem);
    const QuestionAnswer no(QStringLiteral("no_button"));
    EXPECT_FALSE(manager->Recover());
    ASSERT_EQ(no.GetQuestions().size(), 1);
    EXPECT_TRUE(no.GetQuestions().constFirst().contains(QString::fromUtf8("恢复")))
        << qUtf8Printable(no.GetQuestions().constFirst());
}

TEST_F(TLRecoverManagerTest, RecordIsClearedBeforeTheUserIsAsked)
{
    Store(merchant, oneItem);
    QString textWhileAsked = before;
    QuestionAnswer yes(QStringLiteral("yes_button"));
    yes.SetBefore([&textWhileAsked] { textWhileAsked = GetRecoverText(); });
    EXPECT_TRUE(manager->Recover());
    EXPECT_EQ(textWhileAsked, QString());
}

TEST_F(TLRecoverManagerTest, TabsSavedWhileTheUserIsAskedDoNotChangeWhatIsOffered)
{
    Store(merchant, oneItem);
    AddTab(3, QStringLiteral("tl://opened-meanwhile"));
    QuestionAnswer yes(QStringLiteral("yes_button"));
    yes.SetBefore([this] { manager->SaveTabs(); });
    EXPECT_TRUE(manager->Recover());
    EXPECT_EQ(routes.GetExecuted(), QStringList{QStringLiteral("tl://a")});
    EXPECT_EQ(StoredItems(), QList<TabRecoverItem>{Item("tl://opened-meanwhile", 3)});
}

TEST_F(TLRecoverManagerTest, RecordOfAnotherBelongTypeIsClearedAndNotOffered)
{
    for (const char* belongType : {"supplier", "Merchant", "merchan", "merchants", ""}) {
        Store(QString::fromLatin1(belongType), oneItem);
        ExpectNothingIsOffered(belongType);
        EXPECT_EQ(GetRecoverText(), QString()) << belongType;
    }
}

TEST_F(TLRecoverManagerTest, RecordWithoutItemsIsClearedAndNotOffered)
{
    Store(merchant, {});
    ExpectNothingIsOffered("no items");
    EXPECT_EQ(GetRecoverText(), QString());
}

TEST_F(TLRecoverManagerTest, EmptyTextOffersNothing)
{
    ExpectNothingIsOffered("never stored");
    SetRecoverText(QString());
    SetBelongTypeOfUser(QString());
    ExpectNothingIsOffered("a user without belong type, whom an empty record would match");
}

TEST_F(TLRecoverManagerTest, TextThatIsNoRecordIsClearedAndNotOffered)
{
    SetBelongTypeOfUser(QString());
    for (const char* text : {"not JSON", "{", "[]", "null", R"({"tabRecoverItems":{"routerUrl":"tl://a"}})",
                             R"([{"routerUrl":"tl://a"}])"}) {
        SetRecoverText(QString::fromUtf8(text));
        ExpectNothingIsOffered(text);
        EXPECT_EQ(GetRecoverText(), QString()) << text;
    }
}

TEST_F(TLRecoverManagerTest, RecordDamagedAtAnyByteIsClearedAndReopensNoMoreThanItHeld)
{
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    const QByteArray sample =
        R"({"belongType":"merchant","tabRecoverItems":[{"routerUrl":"tl://a","type":4}]})";
    for (int i = 0; i < sample.size(); ++i) {
        for (const int mask : {0x01, 0x80}) {
            QByteArray damaged = sample;
            damaged[i] = static_cast<char>(damaged.at(i) ^ mask);
            SetRecoverText(QString::fromUtf8(damaged));
            const int openedBefore = routes.GetExecuted().size();
            const bool recovered = manager->Recover();
            EXPECT_LE(routes.GetExecuted().size() - openedBefore, recovered ? 1 : 0) << damaged.constData();
            EXPECT_EQ(GetRecoverText(), QString()) << damaged.constData();
        }
    }
}

TEST_F(TLRecoverManagerTest, ItemWithInitialValuesKeepsTheOthersFromNothing)
{
    SetRecoverText(QStringLiteral(
        R"({"belongType":"merchant","tabRecoverItems":[17,{"routerUrl":"tl://a"},{"type":4}]})"));
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    EXPECT_TRUE(manager->Recover());
    // An empty router URL is nothing that routes; that is the router's own business.
    EXPECT_EQ(routes.GetExecuted(), QStringList{QStringLiteral("tl://a")});
}

TEST_F(TLRecoverManagerTest, ClearStoresTheEmptyTextOnlyWhileAUserIsSignedIn)
{
    SetRecoverText(before);
    manager->Clear();
    EXPECT_EQ(GetRecoverText(), QString());

    SignOut();
    SetRecoverText(before);
    manager->Clear();
    EXPECT_EQ(GetRecoverText(), before);
}

TEST_F(TLRecoverManagerTest, ClearSyncStoresTheEmptyTextWhoeverIsSignedIn)
{
    SetRecoverText(before);
    manager->ClearSync();
    EXPECT_EQ(GetRecoverText(), QString());

    SignOut();
    SetRecoverText(before);
    manager->ClearSync();
    EXPECT_EQ(GetRecoverText(), QString());
}

TEST_F(TLRecoverManagerTest, ClearSyncReturnsWhenTheEmptyTextIsOnDisk)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("settings.db"));
    ASSERT_TRUE(VXSettingManager::Instance()->Open(file));
    AddTab(3, QStringLiteral("tl://a"));
    manager->SaveTabs();
    ASSERT_TRUE(VXSettingManager::Instance()->Flush());
    manager->ClearSync();
    {
        QSqlDatabase database =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("onlooker"));
        database.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
        database.setDatabaseName(file);
        ASSERT_TRUE(database.open());
        QSqlQuery query(database);
        ASSERT_TRUE(query.exec(QStringLiteral("SELECT user, value FROM setting")));
        ASSERT_TRUE(query.next());
        EXPECT_EQ(query.value(0).toString(), QStringLiteral("demo"));
        EXPECT_EQ(query.value(1).toString(), QString());
        EXPECT_FALSE(query.next()) << "cleared, never removed, and the only value";
    }
    QSqlDatabase::removeDatabase(QStringLiteral("onlooker"));
    VXSettingManager::Instance()->Close();
}

TEST_F(TLRecoverManagerTest, SetValueStoresTheTextAsItIs)
{
    manager->SetValue(before);
    EXPECT_EQ(GetRecoverText(), before);
    SignOut();
    manager->SetValue(QStringLiteral("nobody's"));
    EXPECT_EQ(GetRecoverText(), QStringLiteral("nobody's"));
}

TEST_F(TLRecoverManagerTest, WhatSaveTabsRecordedSurvivesAnUnorderlyEndAndIsOffered)
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("settings.db"));
    ASSERT_TRUE(VXSettingManager::Instance()->Open(file));
    AddTab(3, QStringLiteral("tl://a"));
    manager->SaveTabs();
    VXSettingManager::Instance()->Close();

    // The next process.
    TLRecoverManager::ReleaseInstance();
    manager = TLRecoverManager::Instance();
    ASSERT_TRUE(VXSettingManager::Instance()->Open(file));
    const QuestionAnswer yes(QStringLiteral("yes_button"));
    EXPECT_TRUE(manager->Recover());
    EXPECT_EQ(routes.GetExecuted(), QStringList{QStringLiteral("tl://a")});
    VXSettingManager::Instance()->Close();
}
