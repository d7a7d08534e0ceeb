#include "AutoRunPageTest.h"

#include "AutoRunIdentifiers.h"
#include "DialogUser.h"
#include "SetAutoRunRequest.h"
#include "TLAutoRunLogic.h"
#include "ui/AutoRunAddWidget.h"
#include "ui/AutoRunEditWidget.h"
#include "ui/AutoRunPluginAddWidget.h"
#include "ui/AutoRunPluginCombo.h"
#include "ui/AutoRunPluginEditWidget.h"
#include "ui/AutoRunSettingWidget.h"

#include "base-ui/TLBubbleLabel.h"
#include "base-ui/TLCheckBox.h"
#include "base-ui/TLLineEdit.h"
#include "base-ui/TLMaskWidget.h"
#include "base-ui/TLToast.h"
#include "base/DpiTool.h"
#include "http/HttpNotifyManager.h"
#include "http/IHttpRequest.h"

#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QRegularExpression>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

/// What the one toast on the screen says, behind its type; empty while there is none.
QString Toast()
{
    QString found;
    const auto widgets = QApplication::allWidgets();
    for (QWidget* const widget : widgets) {
        const auto* const toast = qobject_cast<TLToast*>(widget);
        if (toast != nullptr && toast->isVisible()) {
            EXPECT_TRUE(found.isEmpty());
            found = QStringLiteral("%1 %2").arg(toast->GetToastType()).arg(toast->text());
        }
    }
    return found;
}

class AutoRunSettingEditTest : public AutoRunPageTest
{
protected:
    /// The edit dialog of a custom row, as the row's button opens it.
    void EditUrl(const char* row, const std::function<void(AutoRunEditWidget*)>& use)
    {
        const DialogUser<AutoRunEditWidget> user(use);
        ClickInRow(Row(row), "edit_button");
    }
    void EditApp(const char* row, const std::function<void(AutoRunPluginEditWidget*)>& use)
    {
        const DialogUser<AutoRunPluginEditWidget> user(use);
        ClickInRow(Row(row), "edit_button");
    }
    void PressInVain(const char* label)
    {
        const NoDialog guard;
        Press(label);
    }
    static QStringList Offered(const QWidget* dialog)
    {
        QStringList names;
        auto* const combo = Find<AutoRunPluginCombo>(*dialog, "content_combo");
        for (int i = 0; i < combo->count(); ++i) {
            names.append(combo->itemText(i));
        }
        return names;
    }
    static QByteArray WithoutId(QByteArray entry)
    {
        QJsonObject object = QJsonDocument::fromJson(entry).object();
        object.insert(QStringLiteral("itemId"), QString());
        return QJsonDocument(object).toJson();
    }
    static QString Text(const AutoRunBaseItem* row) { return Find<QLabel>(*row, "text_label")->text(); }
    /// A read under the page's identity, as a second page starts one, that ends with this.
    void ReadOfAnotherPage(const QByteArray& customItems)
    {
        TLAutoRunLogic::Instance()->RequestAutoRun(AutoRunIdentifiers::SettingPageIdentity());
        AnswerConfiguration(QByteArray(), customItems);
    }
};

const QString Good = QStringLiteral("https://vx.example/good");

} // namespace

TEST_F(AutoRunSettingEditTest, AddedUrlStandsLastUntickedAndIsWrittenAtOnce)
{
    OpenPage(System("s1", true), Web("w1", "https://vx.example/1", true), Plugin("orders"));
    AddUrl(Good);
    const QStringList shown{QStringLiteral("home+!"), QStringLiteral("system:s1+"),
                            QStringLiteral("custom:https://vx.example/1+"),
                            QStringLiteral("custom:https://vx.example/good"), QStringLiteral("app:orders")};
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Row("https://vx.example/good")->parentWidget(), Find(*page, "list_widget"));
    EXPECT_EQ(CustomCount(), QStringLiteral("(2/5)"));
    EXPECT_EQ(monitor.events, QStringList{QStringLiteral("Home_Openingsetting_Addpage")});
    EXPECT_EQ(monitor.pages, QStringList{QStringLiteral("Home_Openingsetting")});

    ASSERT_EQ(http.GetCallCount(), 2);
    const QStringList written{QStringLiteral("system:s1+"), QStringLiteral("custom:https://vx.example/1+"),
                              QStringLiteral("custom:https://vx.example/good"), QStringLiteral("app:orders")};
    EXPECT_EQ(Written(1), written);
    const QJsonObject entry = WrittenJson(1).value(QStringLiteral("customItems")).toArray().last().toObject();
    EXPECT_EQ(entry.value(QStringLiteral("type")), QJsonValue(0));
    EXPECT_EQ(entry.value(QStringLiteral("name")), QJsonValue(QString()));
    EXPECT_EQ(entry.value(QStringLiteral("systemItem")), QJsonValue(false));
}

TEST_F(AutoRunSettingEditTest, AddedAppStandsLastAndIsWrittenAtOnce)
{
    OpenPage("", Web("w1", "https://vx.example/1"), Plugin("orders", true));
    AddApp(QStringLiteral("Chat"));
    EXPECT_EQ(Shown().constLast(), QStringLiteral("app:chat"));
    EXPECT_EQ(Row("chat")->parentWidget(), Find(*page, "plugin_list_widget"));
    EXPECT_EQ(Text(Row("chat")), QStringLiteral("Chat"));
    EXPECT_EQ(PluginCount(), QStringLiteral("(2/5)"));
    EXPECT_EQ(CustomCount(), QStringLiteral("(1/5)"));
    EXPECT_EQ(monitor.events, QStringList{QStringLiteral("Home_Openingsetting_AddService")});
    const QStringList written{QStringLiteral("custom:https://vx.example/1"), QStringLiteral("app:orders+"),
                              QStringLiteral("app:chat")};
    EXPECT_EQ(Written(1), written);
    const QJsonObject entry = WrittenJson(1).value(QStringLiteral("pluginItems")).toArray().last().toObject();
    EXPECT_EQ(entry.value(QStringLiteral("type")), QJsonValue(1));
    EXPECT_EQ(entry.value(QStringLiteral("name")), QJsonValue(QStringLiteral("Chat")));
}

TEST_F(AutoRunSettingEditTest, EveryAddGetsABracedLowerCaseUuidOfItsOwn)
{
    OpenPage("");
    QStringList ids;
    for (int i = 1; i <= 3; ++i) {
        AddUrl(QStringLiteral("https://vx.example/%1").arg(i));
        EndWrite();
        ids.append(Rows().constLast()->GetItemId());
    }
    for (const QString& name : {QStringLiteral("Orders"), QStringLiteral("Chat")}) {
        AddApp(name);
        EndWrite();
        ids.append(Rows().constLast()->GetItemId());
    }
    const QRegularExpression form(
        QStringLiteral("^\\{[0-9a-f]{8}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{4}-[0-9a-f]{12}\\}$"));
    for (const QString& id : qAsConst(ids)) {
        EXPECT_TRUE(form.match(id).hasMatch()) << qUtf8Printable(id);
    }
    EXPECT_EQ(ids.removeDuplicates(), 0);
}

TEST_F(AutoRunSettingEditTest, BadAddressIsToldOfInTheDialogAndAGoodOneIsTaken)
{
    OpenPage("");
    {
        const DialogUser<AutoRunAddWidget> user([this](AutoRunAddWidget* dialog) {
            EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Add Url"));
            EXPECT_EQ(dialog->size(), QSize(532, 228));
            EnterUrl(dialog, QStringLiteral("https://evil.example/"));
            EXPECT_TRUE(dialog->isVisible());
            auto* const bubble = dialog->findChild<TLBubbleLabel*>();
            ASSERT_NE(bubble, nullptr);
            EXPECT_TRUE(bubble->isVisible());
            EXPECT_EQ(Shown(), QStringList{QStringLiteral("home+!")});
            EXPECT_EQ(http.GetCallCount(), 1);
            EnterUrl(dialog, Good);
        });
        Press("add_label");
    }
    EXPECT_EQ(Shown().constLast(), QStringLiteral("custom:https://vx.example/good"));
    EXPECT_EQ(http.GetCallCount(), 2);
}

TEST_F(AutoRunSettingEditTest, AddThatIsCancelledChangesNothing)
{
    OpenPage("", Webs(2), Plugins(1));
    const QStringList shown = Shown();
    for (const char* const button : {"cancel_button", "title_close_button"}) {
        const DialogUser<AutoRunAddWidget> user([button](AutoRunAddWidget* dialog) {
            QTest::keyClicks(Find<TLLineEdit>(*dialog, "content_edit"), Good);
            Click(Find(*dialog, button));
        });
        Press("add_label");
    }
    {
        const DialogUser<AutoRunPluginAddWidget> user(
            [](AutoRunPluginAddWidget* dialog) { QTest::keyClick(dialog, Qt::Key_Escape); });
        Press("add_plugin_label");
    }
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(CustomCount(), QStringLiteral("(2/5)"));
    EXPECT_EQ(PluginCount(), QStringLiteral("(1/5)"));
    EXPECT_EQ(http.GetCallCount(), 1) << "nothing is written";
    const QStringList reported{QStringLiteral("Home_Openingsetting_Addpage"),
                               QStringLiteral("Home_Openingsetting_Addpage"),
                               QStringLiteral("Home_Openingsetting_AddService")};
    EXPECT_EQ(monitor.events, reported) << "the press is reported all the same";
}

TEST_F(AutoRunSettingEditTest, SixthUrlIsRefusedWithAToastAndNoDialog)
{
    OpenPage("", Webs(5), Plugins(2));
    PressInVain("add_label");
    EXPECT_EQ(Toast(), QStringLiteral("2 Custom URL cannot exceed 5"));
    EXPECT_EQ(monitor.events, QStringList{QStringLiteral("Home_Openingsetting_Addpage")});
    EXPECT_EQ(http.GetCallCount(), 1);
    EXPECT_EQ(CustomCount(), QStringLiteral("(5/5)"));
    EXPECT_EQ(Rows().size(), 8);
}

TEST_F(AutoRunSettingEditTest, SixthAppIsRefusedWithAToastAndNoDialog)
{
    OpenPage("", Webs(2), Plugins(5));
    PressInVain("add_plugin_label");
    EXPECT_EQ(Toast(), QStringLiteral("2 Add App cannot exceed 5"));
    EXPECT_EQ(monitor.events, QStringList{QStringLiteral("Home_Openingsetting_AddService")});
    EXPECT_EQ(http.GetCallCount(), 1);
    EXPECT_EQ(PluginCount(), QStringLiteral("(5/5)"));
    EXPECT_EQ(Rows().size(), 8);
}

TEST_F(AutoRunSettingEditTest, MoreEntriesThanTheLimitAreShownAndNoneIsAdded)
{
    OpenPage("", Webs(7));
    EXPECT_EQ(CustomCount(), QStringLiteral("(7/5)"));
    PressInVain("add_label");
    EXPECT_EQ(Toast(), QStringLiteral("2 Custom URL cannot exceed 5"));
    EXPECT_EQ(http.GetCallCount(), 1);
}

TEST_F(AutoRunSettingEditTest, FifthIsTakenAndRoomComesBackWithADelete)
{
    OpenPage("", Webs(4));
    AddUrl(Good);
    EndWrite();
    EXPECT_EQ(CustomCount(), QStringLiteral("(5/5)"));
    PressInVain("add_label");
    EXPECT_EQ(CustomCount(), QStringLiteral("(5/5)"));
    ClickInRow(Row("w2"), "delete_button");
    EndWrite();
    AddUrl(QStringLiteral("https://vx.example/again"));
    EXPECT_EQ(CustomCount(), QStringLiteral("(5/5)"));
    EXPECT_EQ(Shown().constLast(), QStringLiteral("custom:https://vx.example/again"));
}

TEST_F(AutoRunSettingEditTest, AppsOfTheListAreNotOfferedAgain)
{
    OpenPage("", "", Plugin("orders") + ',' + Plugin("chat"));
    {
        const DialogUser<AutoRunPluginAddWidget> user([](AutoRunPluginAddWidget* dialog) {
            EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Add App"));
            EXPECT_EQ(dialog->size(), QSize(532, 228));
            const QStringList offered{QStringLiteral("Please select app"), QStringLiteral("Stock"),
                                      QStringLiteral("Ads"), QStringLiteral("Mail"), QStringLiteral("Bank")};
            EXPECT_EQ(Offered(dialog), offered);
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        Press("add_plugin_label");
    }
    EditApp("chat", [](AutoRunPluginEditWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Edit App"));
        EXPECT_EQ(Find<AutoRunPluginCombo>(*dialog, "content_combo")->currentText(), QStringLiteral("Chat"));
        EXPECT_FALSE(Offered(dialog).contains(QStringLiteral("Orders")));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
}

TEST_F(AutoRunSettingEditTest, EditedUrlIsShownInItsRowAndWritten)
{
    OpenPage("", Web("w1", "https://vx.example/1", true, true) + ',' + Web("w2", "https://vx.example/2"));
    EditUrl("w1", [this](AutoRunEditWidget* dialog) {
        EXPECT_EQ(dialog->windowTitle(), QStringLiteral("Edit Url"));
        EXPECT_EQ(dialog->size(), QSize(532, 228));
        EXPECT_EQ(monitor.events,
                  QStringList{QStringLiteral("Home_Openingsetting_Edit https://vx.example/1")})
            << "reported before the dialog";
        EnterUrl(dialog, Good);
    });
    EXPECT_EQ(Text(Row("w1")), Good);
    const QStringList written{QStringLiteral("custom:https://vx.example/good+!"),
                              QStringLiteral("custom:https://vx.example/2")};
    ASSERT_EQ(http.GetCallCount(), 2);
    EXPECT_EQ(Written(1), written);
    EXPECT_EQ(monitor.events.size(), 1);
}

TEST_F(AutoRunSettingEditTest, EditThatIsCancelledChangesNothing)
{
    OpenPage("", Webs(1), Plugins(1));
    const QStringList shown = Shown();
    EditUrl("w1", [](AutoRunEditWidget* dialog) {
        QTest::keyClicks(Find<TLLineEdit>(*dialog, "content_edit"), Good);
        Click(Find(*dialog, "cancel_button"));
    });
    EditApp("orders", [](AutoRunPluginEditWidget* dialog) { Click(Find(*dialog, "title_close_button")); });
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(http.GetCallCount(), 1);
    const QStringList reported{QStringLiteral("Home_Openingsetting_Edit https://vx.example/1"),
                               QStringLiteral("Home_Openingsetting_Edit orders")};
    EXPECT_EQ(monitor.events, reported);
}

TEST_F(AutoRunSettingEditTest, EditedAppIsShownInItsRowAndWritten)
{
    OpenPage("", "", Plugin("orders", true) + ',' + Plugin("chat"));
    EditApp("orders", [](AutoRunPluginEditWidget* dialog) { ChooseApp(dialog, QStringLiteral("Bank")); });
    EXPECT_EQ(Text(Row("bank")), QStringLiteral("Bank"));
    const QStringList written{QStringLiteral("app:bank+"), QStringLiteral("app:chat")};
    EXPECT_EQ(Written(1), written);
    EXPECT_EQ(PluginCount(), QStringLiteral("(2/5)"));
}

TEST_F(AutoRunSettingEditTest, RowsOfOtherKindsAndNoRowAskForNoDialog)
{
    OpenPage(System("s1"));
    const auto call = [this](const char* slot, AutoRunBaseItem* row) {
        EXPECT_TRUE(
            QMetaObject::invokeMethod(page, slot, Qt::DirectConnection, Q_ARG(AutoRunBaseItem*, row)));
    };
    for (const char* const slot :
         {"SlotEditBtnClicked", "SlotDeleteBtnClicked", "SlotActiveBtnClicked", "SlotCheckBtnClicked"}) {
        call(slot, nullptr);
    }
    EXPECT_EQ(monitor.events, QStringList());
    call("SlotEditBtnClicked", Row("s1"));
    EXPECT_EQ(monitor.events, QStringList{QStringLiteral("Home_Openingsetting_Edit https://vx.example/s1")});
    AutoRunBaseItem stranger;
    call("SlotDeleteBtnClicked", &stranger);
    EXPECT_EQ(http.GetCallCount(), 1);
    EXPECT_EQ(Shown().size(), 2);
}

TEST_F(AutoRunSettingEditTest, DeletedRowGoesAtOnceAndIsNotWritten)
{
    OpenPage(System("s1"), Webs(2), Plugins(2));
    const QPointer<AutoRunBaseItem> row = Row("w1");
    ClickInRow(row, "delete_button");
    EXPECT_TRUE(row.isNull());
    EXPECT_EQ(CustomCount(), QStringLiteral("(1/5)"));
    EXPECT_EQ(PluginCount(), QStringLiteral("(2/5)"));
    const QStringList written{QStringLiteral("system:s1"), QStringLiteral("custom:https://vx.example/2"),
                              QStringLiteral("app:orders"), QStringLiteral("app:stock")};
    EXPECT_EQ(Written(1), written);
    EndWrite();

    ClickInRow(Row("orders"), "delete_button");
    EXPECT_EQ(PluginCount(), QStringLiteral("(1/5)"));
    EXPECT_EQ(Written(2).constLast(), QStringLiteral("app:stock"));
    const QStringList reported{QStringLiteral("Home_Openingsetting_Deletepage"),
                               QStringLiteral("Home_Openingsetting_DeleteService")};
    EXPECT_EQ(monitor.events, reported);
}

TEST_F(AutoRunSettingEditTest, DeletedRowThatOpenedFirstHandsThatToTheHomePage)
{
    OpenPage(System("s1", true), Web("w1", "https://vx.example/1", true, true), Plugin("orders"));
    ClickInRow(Row("w1"), "delete_button");
    const QStringList shown{QStringLiteral("home+!"), QStringLiteral("system:s1+"),
                            QStringLiteral("app:orders")};
    EXPECT_EQ(Shown(), shown);
    const QStringList written{QStringLiteral("system:s1+"), QStringLiteral("app:orders")};
    EXPECT_EQ(Written(1), written) << "no entry is marked";
}

TEST_F(AutoRunSettingEditTest, DeletedAppThatOpenedFirstHandsThatToTheHomePage)
{
    OpenPage("", "", Plugin("orders", true, true));
    ClickInRow(Row("orders"), "delete_button");
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("home+!")});
    EXPECT_EQ(Written(1), QStringList());
}

TEST_F(AutoRunSettingEditTest, DeleteOfAnotherRowLeavesWhatOpensFirst)
{
    OpenPage("", Web("w1", "https://vx.example/1", true, true) + ',' + Web("w2", "https://vx.example/2"));
    ClickInRow(Row("w2"), "delete_button");
    EXPECT_EQ(Written(1), QStringList{QStringLiteral("custom:https://vx.example/1+!")});
}

TEST_F(AutoRunSettingEditTest, RowIsDestroyedInsideTheSignalOfItsOwnButtonByMouseAndKeys)
{
    OpenPage("", Webs(5), Plugins(4));
    for (const char* const id : {"w1", "w3", "stock"}) { // the mouse presses and releases on the button
        const QPointer<QWidget> button = Find(*Row(id), "delete_button");
        ClickInRow(Row(id), "delete_button");
        EXPECT_TRUE(button.isNull()) << id;
        EndWrite();
        QCoreApplication::processEvents(); // what Qt still has for the place under the mouse
    }
    for (const char* const id : {"w5", "orders"}) {
        MoveMouseAway();
        Hover(Row(id));
        const QPointer<QWidget> button = Find(*Row(id), "delete_button");
        button->setFocus();
        QTest::keyPress(button.data(), Qt::Key_Space);
        QTest::keyRelease(button.data(), Qt::Key_Space);
        EXPECT_TRUE(button.isNull()) << id;
        EndWrite();
        QCoreApplication::processEvents();
    }
    {
        // Through the window system, as a real mouse does it.
        MoveMouseAway();
        Hover(Row("w2"));
        const QPointer<QWidget> button = Find(*Row("w2"), "delete_button");
        QWindow* const window = settings->windowHandle();
        const QPoint place = button->mapTo(settings.get(), button->rect().center());
        QTest::mouseClick(window, Qt::LeftButton, Qt::NoModifier, place);
        EXPECT_TRUE(button.isNull());
        EndWrite();
        QCoreApplication::processEvents();
    }
    const QStringList shown{QStringLiteral("home+!"), QStringLiteral("custom:https://vx.example/4"),
                            QStringLiteral("app:chat"), QStringLiteral("app:ads")};
    EXPECT_EQ(Shown(), shown);
}

TEST_F(AutoRunSettingEditTest, OpenFirstTicksTheRowWritesOnceAndIsReported)
{
    OpenPage(System("s1", true, true), Webs(1), Plugins(1));
    int callsAtEvent = 0;
    monitor.watch = [this, &callsAtEvent] { callsAtEvent = http.GetCallCount(); };
    ClickInRow(Row("w1"), "active_button");
    const QStringList shown{QStringLiteral("home+"), QStringLiteral("system:s1+"),
                            QStringLiteral("custom:https://vx.example/1+!"), QStringLiteral("app:orders")};
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(http.GetCallCount(), 2);
    const QStringList written{QStringLiteral("system:s1+"), QStringLiteral("custom:https://vx.example/1+!"),
                              QStringLiteral("app:orders")};
    EXPECT_EQ(Written(1), written);
    EXPECT_EQ(monitor.events, QStringList{QStringLiteral("Home_Openingsetting_Prior https://vx.example/1")});
    EXPECT_EQ(callsAtEvent, 2) << "reported after the write was started";
}

TEST_F(AutoRunSettingEditTest, HomePageIsChosenToOpenFirstByMarkingNoEntry)
{
    OpenPage(System("s1", true, true), Webs(1));
    ClickInRow(Rows().constFirst(), "active_button");
    EXPECT_EQ(Shown().constFirst(), QStringLiteral("home+!"));
    const QStringList written{QStringLiteral("system:s1+"), QStringLiteral("custom:https://vx.example/1")};
    EXPECT_EQ(Written(1), written);
    EXPECT_EQ(monitor.events, QStringList{QStringLiteral("Home_Openingsetting_Prior ")})
        << "with an empty address";
}

TEST_F(AutoRunSettingEditTest, TicksAreWrittenAndReportedAfterwards)
{
    OpenPage(System("s1"), Webs(1), Plugins(1));
    int callsAtEvent = 0;
    monitor.watch = [this, &callsAtEvent] { callsAtEvent = http.GetCallCount(); };
    Tick(Row("s1"));
    EXPECT_EQ(callsAtEvent, 2);
    EXPECT_EQ(Written(1).constFirst(), QStringLiteral("system:s1+"));
    EndWrite();
    Click(Find<QLabel>(*Row("w1"), "text_label"));
    EXPECT_EQ(Written(2).at(1), QStringLiteral("custom:https://vx.example/1+"));
    EndWrite();
    QTest::keyClick(Box(Row("orders")), Qt::Key_Space);
    EXPECT_EQ(Written(3).constLast(), QStringLiteral("app:orders+"));
    EndWrite();
    Tick(Row("w1"));
    EXPECT_EQ(callsAtEvent, 5);
    const QStringList written{QStringLiteral("system:s1+"), QStringLiteral("custom:https://vx.example/1"),
                              QStringLiteral("app:orders+")};
    EXPECT_EQ(Written(4), written);
    const QStringList reported{QStringLiteral("Home_Openingsetting_Selected https://vx.example/s1"),
                               QStringLiteral("Home_Openingsetting_Selected https://vx.example/1"),
                               QStringLiteral("Home_Openingsetting_Selected orders"),
                               QStringLiteral("Home_Openingsetting_Unselected https://vx.example/1")};
    EXPECT_EQ(monitor.events, reported);
}

TEST_F(AutoRunSettingEditTest, UntickedRowThatOpenedFirstHandsThatToTheHomePageForGood)
{
    OpenPage(System("s1", true, true), Webs(1));
    Tick(Row("s1"));
    const QStringList unticked{QStringLiteral("home+!"), QStringLiteral("system:s1"),
                               QStringLiteral("custom:https://vx.example/1")};
    EXPECT_EQ(Shown(), unticked);
    EXPECT_EQ(Written(1).constFirst(), QStringLiteral("system:s1"));
    EndWrite();
    Tick(Row("s1"));
    const QStringList ticked{QStringLiteral("home+!"), QStringLiteral("system:s1+"),
                             QStringLiteral("custom:https://vx.example/1")};
    EXPECT_EQ(Shown(), ticked);
    EXPECT_EQ(Written(2).constFirst(), QStringLiteral("system:s1+"));
}

TEST_F(AutoRunSettingEditTest, WriteHoldsAllButTheHomePageInTheOrderOfTheRows)
{
    OpenPage(System("s2", true) + ',' + System("s1"),
             Web("w2", "https://vx.example/2") + ',' + Web("w1", "https://vx.example/1", true),
             Plugin("stock") + ',' + Plugin("chat", true) + ',' + Plugin("orders"));
    Tick(Row("orders"));
    const QStringList written{QStringLiteral("system:s2+"),
                              QStringLiteral("system:s1"),
                              QStringLiteral("custom:https://vx.example/2"),
                              QStringLiteral("custom:https://vx.example/1+"),
                              QStringLiteral("app:stock"),
                              QStringLiteral("app:chat+"),
                              QStringLiteral("app:orders+")};
    EXPECT_EQ(Written(1), written);
    EXPECT_EQ(http.GetCall(1).request->GetIdentity(), QString());
}

TEST_F(AutoRunSettingEditTest, SaveThatSucceedsOrFailsIsToldToTheDialog)
{
    OpenPage("", Webs(2));
    Tick(Row("w1"));
    EXPECT_EQ(succeeded->count() + failed->count(), 0);
    EndWrite();
    EXPECT_EQ(succeeded->count(), 1);
    EXPECT_EQ(failed->count(), 0);
    Tick(Row("w2"));
    http.Fail(LastCall());
    EXPECT_EQ(succeeded->count(), 1);
    EXPECT_EQ(failed->count(), 1);
    Tick(Row("w1"));
    http.AnswerRaw(LastCall(), R"({"code":"1010","message":"customItems: limit 5","data":null})");
    EXPECT_EQ(failed->count(), 2);
    Tick(Row("w1"));
    http.Answer(LastCall(), R"("true")");
    EXPECT_EQ(failed->count(), 3) << "an answer of the wrong type is no success";
    EXPECT_EQ(succeeded->count(), 1);
}

TEST_F(AutoRunSettingEditTest, FailedSaveLeavesThePageAsItIsAndGoesOutWithTheNext)
{
    OpenPage(System("s1"), Webs(2));
    ClickInRow(Row("w1"), "delete_button");
    http.Fail(LastCall());
    const QStringList shown{QStringLiteral("home+!"), QStringLiteral("system:s1"),
                            QStringLiteral("custom:https://vx.example/2")};
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(http.GetCallCount(), 2) << "not sent again by itself";
    Tick(Row("s1"));
    const QStringList written{QStringLiteral("system:s1+"), QStringLiteral("custom:https://vx.example/2")};
    EXPECT_EQ(Written(2), written);
}

TEST_F(AutoRunSettingEditTest, SecondOfTwoQuickChangesGoesOutWithALaterOne)
{
    OpenPage(System("s1"), Webs(2));
    Tick(Row("w1"));
    const QStringList first{QStringLiteral("system:s1"), QStringLiteral("custom:https://vx.example/1+"),
                            QStringLiteral("custom:https://vx.example/2")};
    EXPECT_EQ(Written(1), first);
    Tick(Row("w2"));
    EXPECT_EQ(http.GetCallCount(), 2) << "one write at a time";
    EndWrite();
    EXPECT_EQ(http.GetCallCount(), 2) << "the end of a write starts none";
    EXPECT_EQ(Shown().constLast(), QStringLiteral("custom:https://vx.example/2+"));
    Tick(Row("s1"));
    const QStringList third{QStringLiteral("system:s1+"), QStringLiteral("custom:https://vx.example/1+"),
                            QStringLiteral("custom:https://vx.example/2+")};
    EXPECT_EQ(Written(2), third);
}

TEST_F(AutoRunSettingEditTest, EveryKindOfChangeIsKeptWhileAWriteIsUnderWay)
{
    OpenPage("", Webs(2), Plugins(1));
    Tick(Row("w1"));
    AddUrl(Good);
    ClickInRow(Row("w2"), "delete_button");
    EditUrl("w1",
            [](AutoRunEditWidget* dialog) { EnterUrl(dialog, QStringLiteral("https://vx.example/x")); });
    AddApp(QStringLiteral("Bank"));
    EXPECT_EQ(http.GetCallCount(), 2);
    EndWrite();
    ClickInRow(Row("orders"), "active_button");
    const QStringList written{QStringLiteral("custom:https://vx.example/x+"),
                              QStringLiteral("custom:https://vx.example/good"),
                              QStringLiteral("app:orders+!"), QStringLiteral("app:bank")};
    EXPECT_EQ(Written(2), written);
}

TEST_F(AutoRunSettingEditTest, GatewayThatFailsHalfwayThroughQuickEditsLosesNone)
{
    OpenPage(System("s1") + ',' + System("s2"), Webs(3));
    Tick(Row("s1"));
    EndWrite();
    Tick(Row("s2"));
    Tick(Row("w1")); // while that one is under way, which then fails
    http.Fail(LastCall());
    Tick(Row("w2"));
    http.AnswerRaw(LastCall(), R"({"code":"5001","message":"busy","data":null})");
    EXPECT_EQ(failed->count(), 2);
    Tick(Row("w3"));
    const QStringList all{QStringLiteral("system:s1+"), QStringLiteral("system:s2+"),
                          QStringLiteral("custom:https://vx.example/1+"),
                          QStringLiteral("custom:https://vx.example/2+"),
                          QStringLiteral("custom:https://vx.example/3+")};
    EXPECT_EQ(Written(LastCall()), all);
    EndWrite();
    EXPECT_EQ(succeeded->count(), 2);
}

TEST_F(AutoRunSettingEditTest, WriteThatNeverEndsHoldsBackAllLaterOnes)
{
    OpenPage("", Webs(2));
    Tick(Row("w1"));
    Tick(Row("w2"));
    ClickInRow(Row("w1"), "delete_button");
    Tick(Row("w2"));
    EXPECT_EQ(http.GetCallCount(), 2);
}

TEST_F(AutoRunSettingEditTest, ChangeWhileThePageReadsIsNotWritten)
{
    OpenPage();
    DpiTool::SetScale(2); // the one way to rows before the read ends: what is cached
    ASSERT_EQ(Rows().size(), 1);
    ASSERT_TRUE(QMetaObject::invokeMethod(page, "SlotActiveBtnClicked", Qt::DirectConnection,
                                          Q_ARG(AutoRunBaseItem*, Rows().constFirst())));
    EXPECT_EQ(http.GetCallCount(), 1) << "an empty list would have replaced the user's";
    EXPECT_EQ(monitor.events.size(), 1);
}

TEST_F(AutoRunSettingEditTest, AnyFinishedWriteEndsTheWaitAndIsToldOf)
{
    OpenPage("", Webs(2));
    Tick(Row("w1"));
    TLAutoRunLogic::Instance()->SaveAutoRun({}, {}, {});
    http.Answer(2, "true"); // another page's
    EXPECT_EQ(succeeded->count(), 1);
    Tick(Row("w2"));
    EXPECT_EQ(http.GetCallCount(), 4);
}

TEST_F(AutoRunSettingEditTest, RefreshWhileAWriteIsUnderWayDoesNothing)
{
    OpenPage("", Webs(1));
    Tick(Row("w1"));
    ASSERT_TRUE(QMetaObject::invokeMethod(page, "SlotRefresh", Qt::DirectConnection));
    EXPECT_EQ(http.GetCallCount(), 2);
    EXPECT_EQ(Rows().size(), 2);
}

TEST_F(AutoRunSettingEditTest, DialogsStandOverTheDimmedBrowser)
{
    OpenPage("", Webs(1), Plugins(1));
    const auto check = [this](QDialog* dialog, const QString& title) {
        auto* const mask = qobject_cast<TLMaskWidget*>(dialog->parentWidget());
        ASSERT_NE(mask, nullptr);
        EXPECT_EQ(mask->window(), browserWindow.get());
        EXPECT_TRUE(mask->isVisible());
        EXPECT_TRUE(dialog->isModal());
        EXPECT_EQ(dialog->windowTitle(), title);
        EXPECT_EQ(dialog->minimumSize(), QSize(532, 228));
        EXPECT_EQ(dialog->maximumSize(), QSize(532, 228));
        QTest::keyClick(dialog, Qt::Key_Escape);
    };
    {
        const DialogUser<AutoRunAddWidget> user(
            [&](QDialog* dialog) { check(dialog, QStringLiteral("Add Url")); });
        Press("add_label");
    }
    {
        const DialogUser<AutoRunPluginAddWidget> user(
            [&](QDialog* dialog) { check(dialog, QStringLiteral("Add App")); });
        Press("add_plugin_label");
    }
    EditUrl("w1", [&](QDialog* dialog) { check(dialog, QStringLiteral("Edit Url")); });
    EditApp("orders", [&](QDialog* dialog) { check(dialog, QStringLiteral("Edit App")); });
    auto* const mask = browserWindow->findChild<TLMaskWidget*>();
    ASSERT_NE(mask, nullptr);
    EXPECT_TRUE(QTest::qWaitFor([mask] { return !mask->isVisible(); }));
    EXPECT_EQ(browserWindow->findChildren<QDialog*>().size(), 0) << "gone at once";
}

TEST_F(AutoRunSettingEditTest, DialogsFollowTheScaleAtWhichTheyOpen)
{
    OpenPage("");
    DpiTool::SetScale(1.25);
    const DialogUser<AutoRunAddWidget> user([](QDialog* dialog) {
        EXPECT_EQ(dialog->size(), QSize(665, 285));
        QTest::keyClick(dialog, Qt::Key_Escape);
    });
    Press("add_label");
}

TEST_F(AutoRunSettingEditTest, WithoutABrowserWindowTheDialogsStandAlone)
{
    OpenPage("");
    const auto add = [this](const QString& url) {
        const DialogUser<AutoRunAddWidget> user([&url](QDialog* dialog) {
            EXPECT_EQ(dialog->parentWidget(), nullptr);
            EnterUrl(dialog, url);
        });
        Press("add_label");
    };
    browser.SetMainWidget(nullptr);
    add(QStringLiteral("https://vx.example/1"));
    const Provided<IBrowserMain> nobody(nullptr);
    add(QStringLiteral("https://vx.example/2"));
    EXPECT_EQ(CustomCount(), QStringLiteral("(2/5)"));
}

TEST_F(AutoRunSettingEditTest, ReadThatEndsWhileTheEditDialogIsOpenKeepsTheEdit)
{
    OpenPage("", Webs(2));
    EditUrl("w1", [this](AutoRunEditWidget* dialog) {
        ReadOfAnotherPage(Web("w2", "https://vx.example/2", true) + ',' + Web("w1", "https://vx.example/1"));
        EnterUrl(dialog, Good);
    });
    const QStringList shown{QStringLiteral("home+!"), QStringLiteral("custom:https://vx.example/2+"),
                            QStringLiteral("custom:https://vx.example/good")};
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Text(Row("w1")), Good);
    const QStringList written{QStringLiteral("custom:https://vx.example/2+"),
                              QStringLiteral("custom:https://vx.example/good")};
    EXPECT_EQ(Written(LastCall()), written);
    QList<AutoRunInfoEntityPtr> cached;
    TLAutoRunLogic::Instance()->GetAutoRunList(cached);
    EXPECT_EQ(cached.last(), Row("w1")->GetData()) << "the row still shares the cached entry";
}

TEST_F(AutoRunSettingEditTest, ReadThatEndsWhileTheAppDialogIsOpenKeepsTheEdit)
{
    OpenPage("", "", Plugins(1));
    EditApp("orders", [this](AutoRunPluginEditWidget* dialog) {
        TLAutoRunLogic::Instance()->RequestAutoRun(AutoRunIdentifiers::SettingPageIdentity());
        AnswerConfiguration("", "", Plugin("stock") + ',' + Plugin("orders"));
        ChooseApp(dialog, QStringLiteral("Bank"));
    });
    EXPECT_EQ(Text(Row("bank")), QStringLiteral("Bank"));
    const QStringList written{QStringLiteral("app:stock"), QStringLiteral("app:bank")};
    EXPECT_EQ(Written(LastCall()), written);
}

TEST_F(AutoRunSettingEditTest, EditOfAnEntryThatIsGoneSinceWritesNothing)
{
    OpenPage("", Webs(1));
    EditUrl("w1", [this](AutoRunEditWidget* dialog) {
        ReadOfAnotherPage(Web("w2", "https://vx.example/2"));
        EnterUrl(dialog, Good);
    });
    const QStringList shown{QStringLiteral("home+!"), QStringLiteral("custom:https://vx.example/2")};
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(http.GetCallCount(), 2) << "two reads and no write";
}

TEST_F(AutoRunSettingEditTest, EditNeverLandsInARowOfAnotherKind)
{
    for (const bool hasId : {true, false}) {
        SCOPED_TRACE(hasId);
        const QByteArray web = Web("same", "https://vx.example/1");
        const QByteArray system = System("same");
        OpenPage("", hasId ? web : WithoutId(web));
        const int calls = http.GetCallCount();
        EditUrl("https://vx.example/1", [&](AutoRunEditWidget* dialog) {
            TLAutoRunLogic::Instance()->RequestAutoRun(AutoRunIdentifiers::SettingPageIdentity());
            AnswerConfiguration(hasId ? system : WithoutId(system), Web("other", "https://vx.example/2"),
                                QByteArray());
            EnterUrl(dialog, Good);
        });
        QList<AutoRunInfoEntityPtr> cached;
        TLAutoRunLogic::Instance()->GetAutoRunList(cached);
        ASSERT_EQ(cached.size(), 2);
        EXPECT_NE(cached.first()->url, Good);
        EXPECT_NE(cached.last()->url, Good);
        EXPECT_EQ(http.GetCallCount(), calls + 1) << "a read and no write";
        ClosePage();
    }
}

TEST_F(AutoRunSettingEditTest, EditOfOneOfManyWithoutAnIdComesBackToItsOwnRow)
{
    OpenPage("", WithoutId(Web("w1", "https://vx.example/1")) + ',' +
                     WithoutId(Web("w2", "https://vx.example/2")));
    EditUrl("https://vx.example/2", [](AutoRunEditWidget* dialog) {
        DpiTool::SetScale(2); // makes the rows again from the same entries
        EnterUrl(dialog, Good);
    });
    const QStringList shown{QStringLiteral("home+!"), QStringLiteral("custom:https://vx.example/1"),
                            QStringLiteral("custom:https://vx.example/good")};
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(Written(LastCall()), shown.mid(1));
}

TEST_F(AutoRunSettingEditTest, ReadThatEndsWhileTheAddDialogIsOpenKeepsBoth)
{
    OpenPage("", Webs(1));
    {
        const DialogUser<AutoRunAddWidget> user([this](QDialog* dialog) {
            ReadOfAnotherPage(Webs(3));
            EnterUrl(dialog, Good);
        });
        Press("add_label");
    }
    EXPECT_EQ(CustomCount(), QStringLiteral("(4/5)"));
    EXPECT_EQ(Written(LastCall()).size(), 4);
    EXPECT_EQ(Written(LastCall()).constLast(), QStringLiteral("custom:https://vx.example/good"));
}

TEST_F(AutoRunSettingEditTest, SaveThatEndsWhileADialogIsOpenIsToldOfAndTheNextIsWritten)
{
    OpenPage("", Webs(2));
    Tick(Row("w2"));
    EditUrl("w1", [this](AutoRunEditWidget* dialog) {
        EndWrite();
        EXPECT_EQ(succeeded->count(), 1);
        EnterUrl(dialog, Good);
    });
    const QStringList written{QStringLiteral("custom:https://vx.example/good"),
                              QStringLiteral("custom:https://vx.example/2+")};
    EXPECT_EQ(Written(LastCall()), written);
}

TEST_F(AutoRunSettingEditTest, ChangeOfTheScaleWhileADialogIsOpenKeepsTheEdit)
{
    OpenPage("", Webs(1));
    EditUrl("w1", [](AutoRunEditWidget* dialog) {
        DpiTool::SetScale(2);
        EnterUrl(dialog, Good);
    });
    EXPECT_EQ(Text(Row("w1")), Good);
    EXPECT_EQ(Written(LastCall()), QStringList{QStringLiteral("custom:https://vx.example/good")});
}

TEST_F(AutoRunSettingEditTest, PageMayGoWhileItsDialogIsOpen)
{
    OpenPage("", Webs(1), Plugins(1));
    EditUrl("w1", [this](AutoRunEditWidget* dialog) {
        ClosePage();
        EnterUrl(dialog, Good);
    });
    EXPECT_TRUE(page.isNull());
    OpenPage("", Webs(1), Plugins(1));
    EditApp("orders", [this](AutoRunPluginEditWidget* dialog) {
        ClosePage();
        ChooseApp(dialog, QStringLiteral("Bank"));
    });
    for (const char* const label : {"add_label", "add_plugin_label"}) {
        OpenPage("");
        const DialogUser<QDialog> user([this](QDialog* dialog) {
            ClosePage();
            if (auto* const url = qobject_cast<AutoRunAddWidget*>(dialog)) {
                EnterUrl(url, Good);
            } else {
                ChooseApp(dialog, QStringLiteral("Bank"));
            }
        });
        QTest::mousePress(Label(label), Qt::LeftButton); // there is no label left to release the button on
    }
    EXPECT_EQ(http.GetCallCount(), 4) << "four reads and no write";
}

TEST_F(AutoRunSettingEditTest, BrowserWindowMayTakeAnOpenDialogWithIt)
{
    OpenPage("", Webs(1));
    EditUrl("w1", [this](AutoRunEditWidget*) {
        browser.SetMainWidget(nullptr);
        browserWindow.reset();
    });
    EXPECT_EQ(Text(Row("w1")), QStringLiteral("https://vx.example/1"));
    EXPECT_EQ(http.GetCallCount(), 1);
}

TEST_F(AutoRunSettingEditTest, TwoHundredTimesOpenEditAndCloseLeaveNothingBehind)
{
    constexpr int cycles = 200;
    int widgets = 0;
    int observed = 0;
    for (int i = 0; i < cycles; ++i) {
        OpenPage(System("s1"), Webs(2), Plugins(2));
        Tick(Row("s1"));
        EndWrite();
        AddUrl(Good);
        EndWrite();
        EditApp("orders", [](AutoRunPluginEditWidget* dialog) { ChooseApp(dialog, QStringLiteral("Bank")); });
        EndWrite();
        ClickInRow(Row("w1"), "active_button");
        EndWrite();
        ClickInRow(Row("w1"), "delete_button");
        EndWrite();
        ASSERT_EQ(succeeded->count(), 5);
        observed += succeeded->count();
        ClosePage();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        if (i == 0) {
            widgets = QApplication::allWidgets().size();
        }
    }
    EXPECT_EQ(QApplication::allWidgets().size(), widgets) << "as many as after the first time";
    EXPECT_EQ(observed, 5 * cycles);
    EXPECT_EQ(monitor.events.size(), 5 * cycles);
}
