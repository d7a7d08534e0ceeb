#include "AutoRunPageTest.h"

#include "AutoRunIdentifiers.h"
#include "AutoRunInfoEntity.h"
#include "DialogUser.h"
#include "GetAutoRunRequest.h"
#include "TLAutoRunLogic.h"
#include "ui/AutoRunAddWidget.h"
#include "ui/AutoRunPluginAddWidget.h"
#include "ui/AutoRunSettingWidget.h"

#include "base-ui/RequestStatusBaseWidget.h"
#include "base-ui/TLCheckBox.h"
#include "base/DpiTool.h"
#include "http/HttpNotifyManager.h"
#include "http/IHttpRequest.h"

#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

using AutoRunSettingWidgetTest = AutoRunPageTest;

const QString UrlHeading = QStringLiteral("Set the URL that opens when you start it");
const QString AppHeading = QStringLiteral("Set the App that opens when you start it");

QString CountHtml(int count)
{
    return QStringLiteral("<font color=\"#999999\">(</font><font color=\"#333333\">") +
           QString::number(count) + QStringLiteral("</font><font color=\"#999999\">/5)</font>");
}

/// Counts the presses that a widget gets.
class PressCounter final : public QObject
{
public:
    int count = 0;

    bool eventFilter(QObject*, QEvent* event) override
    {
        count += event->type() == QEvent::MouseButtonPress ? 1 : 0;
        return false;
    }
};

bool IsHighlighted(const QLabel* label)
{
    return label->text().contains(QLatin1Char('<'));
}

/// The column of that name, which leaves no room between its parts.
QVBoxLayout* Column(const QWidget& page, const char* name)
{
    auto* const column = page.findChild<QVBoxLayout*>(QLatin1String(name));
    EXPECT_NE(column, nullptr) << name;
    EXPECT_EQ(column->spacing(), 0) << name;
    return column;
}

} // namespace

TEST_F(AutoRunSettingWidgetTest, HasTheNameAndSizeOfItsForm)
{
    const AutoRunSettingWidget fresh;
    EXPECT_EQ(fresh.objectName(), QStringLiteral("AutoRunSettingWidget"));
    EXPECT_EQ(fresh.windowTitle(), QStringLiteral("AutoRunSettingWidget"));
    EXPECT_EQ(fresh.size(), QSize(400, 300));
}

TEST_F(AutoRunSettingWidgetTest, ShowsItsStatusAboveRoomThatIsLeft)
{
    const AutoRunSettingWidget fresh;
    auto* const outer = Column(fresh, "verticalLayout");
    EXPECT_EQ(fresh.layout(), outer);
    EXPECT_EQ(MarginsOf(outer), QMargins());
    ASSERT_EQ(outer->count(), 2);
    EXPECT_EQ(outer->itemAt(0)->widget(), Find<RequestStatusBaseWidget>(fresh, "requestStatusWidget"));
    ASSERT_NE(outer->itemAt(1)->spacerItem(), nullptr);
    EXPECT_EQ(outer->itemAt(1)->sizeHint(), QSize(20, 40));
    EXPECT_EQ(outer->itemAt(1)->expandingDirections(), Qt::Vertical);
}

TEST_F(AutoRunSettingWidgetTest, ContentHasATitleAboveEachOfItsTwoLists)
{
    const AutoRunSettingWidget fresh;
    auto* const statusColumn = Column(fresh, "verticalLayout_7");
    EXPECT_EQ(Find(fresh, "requestStatusWidget")->layout(), statusColumn);
    EXPECT_EQ(MarginsOf(statusColumn), QMargins());
    auto* const content = Find(fresh, "content_widget");
    EXPECT_EQ(statusColumn->itemAt(0)->widget(), content);
    auto* const contentColumn = Column(fresh, "verticalLayout_6");
    EXPECT_EQ(content->layout(), contentColumn);
    EXPECT_EQ(MarginsOf(contentColumn), QMargins());
    ASSERT_EQ(contentColumn->count(), 4);
    int place = 0;
    for (const char* const name :
         {"top_widget", "list_widget", "plugin_title_widget", "plugin_list_widget"}) {
        EXPECT_EQ(contentColumn->itemAt(place++)->widget(), Find(fresh, name)) << name;
    }
}

TEST_F(AutoRunSettingWidgetTest, TitlesStandAtTheTopLeft)
{
    const AutoRunSettingWidget fresh;
    const auto checkTitle = [&fresh](const char* widget, const char* layout, const char* label,
                                     const QString& text) {
        auto* const line = Find<QHBoxLayout>(fresh, layout);
        EXPECT_EQ(Find(fresh, widget)->layout(), line);
        EXPECT_EQ(MarginsOf(line), QMargins());
        EXPECT_EQ(line->spacing(), 0);
        ASSERT_EQ(line->count(), 1);
        EXPECT_EQ(line->itemAt(0)->widget(), Find<QLabel>(fresh, label));
        EXPECT_EQ(line->itemAt(0)->alignment(), Qt::AlignLeft | Qt::AlignTop);
        EXPECT_EQ(Find<QLabel>(fresh, label)->text(), text);
    };
    checkTitle("top_widget", "horizontalLayout", "top_label", UrlHeading);
    checkTitle("plugin_title_widget", "horizontalLayout_4", "plugin_title_label", AppHeading);
}

TEST_F(AutoRunSettingWidgetTest, EachListHasALinkAndACounterBelowItsRows)
{
    const AutoRunSettingWidget fresh;
    const auto checkList = [&fresh](const char* widget, const char* layout, const char* rows,
                                    const char* line, const char* add, const QString& text,
                                    const char* count) {
        auto* const list = Column(fresh, layout);
        EXPECT_EQ(Find(fresh, widget)->layout(), list);
        ASSERT_EQ(list->count(), 2);
        EXPECT_EQ(list->itemAt(0)->layout(), Column(fresh, rows));
        EXPECT_EQ(MarginsOf(Column(fresh, rows)), QMargins());
        auto* const links = Find<QHBoxLayout>(fresh, line);
        EXPECT_EQ(list->itemAt(1)->layout(), links);
        ASSERT_EQ(links->count(), 3);
        EXPECT_EQ(links->itemAt(0)->widget(), Find<QLabel>(fresh, add));
        EXPECT_EQ(Find<QLabel>(fresh, add)->text(), text);
        EXPECT_EQ(links->itemAt(1)->widget(), Find<QLabel>(fresh, count));
        EXPECT_EQ(Find<QLabel>(fresh, count)->text(), CountHtml(0));
        ASSERT_NE(links->itemAt(2)->spacerItem(), nullptr);
        EXPECT_EQ(links->itemAt(2)->sizeHint(), QSize(40, 20));
        EXPECT_EQ(links->itemAt(2)->expandingDirections(), Qt::Horizontal);
    };
    checkList("list_widget", "listWidgetLayout", "verticalLayout_3", "addLabelLayout", "add_label",
              QStringLiteral("+custom URL"), "custom_count_label");
    checkList("plugin_list_widget", "pluginListWidgetLayout", "verticalLayout_5", "addPluginLabelLayout",
              "add_plugin_label", QStringLiteral("+Add App"), "plugin_count_label");
}

TEST_F(AutoRunSettingWidgetTest, MarginsAndHeightsFollowTheScale)
{
    const auto check = [](const QWidget& widget, int scale) {
        for (const char* const name : {"listWidgetLayout", "pluginListWidgetLayout"}) {
            EXPECT_EQ(MarginsOf(Find<QLayout>(widget, name)), QMargins(12, 0, 16, 0) * scale) << name;
        }
        for (const char* const name : {"addLabelLayout", "addPluginLabelLayout"}) {
            EXPECT_EQ(MarginsOf(Find<QLayout>(widget, name)), QMargins(12, 2, 0, 12) * scale) << name;
            EXPECT_EQ(Find<QLayout>(widget, name)->spacing(), 4 * scale) << name;
        }
        for (const char* const name : {"top_widget", "plugin_title_widget"}) {
            EXPECT_EQ(Find(widget, name)->minimumHeight(), 24 * scale) << name;
            EXPECT_EQ(Find(widget, name)->maximumHeight(), 24 * scale) << name;
        }
    };
    OpenPage("");
    check(*page, 1);
    DpiTool::SetScale(2);
    check(*page, 2);
    check(AutoRunSettingWidget(), 2);
    DpiTool::SetScale(1);
    check(*page, 1);
}

TEST_F(AutoRunSettingWidgetTest, ReadsTheConfigurationAnewUnderItsOwnIdentity)
{
    OpenPage();
    ASSERT_EQ(http.GetCallCount(), 1);
    const auto& call = http.GetCall(0);
    EXPECT_NE(call.request.dynamicCast<GetAutoRunRequest>(), nullptr);
    EXPECT_EQ(call.request->GetIdentity(), QStringLiteral("6844BE03-D3FF-4ADC-9E01-005CEC79F162"));
    EXPECT_EQ(Status()->GetStatus(), 0) << "loading";
    EXPECT_FALSE(Find(*page, "content_widget")->isVisible());
    EXPECT_EQ(Shown(), QStringList());
}

TEST_F(AutoRunSettingWidgetTest, ShowsHomeThenSystemThenCustomRowsAndAppsBelow)
{
    OpenPage(System("s1") + ',' + System("s2", true), Web("w1", "https://vx.example/1", true),
             Plugin("orders") + ',' + Plugin("chat", true));
    EXPECT_EQ(Status()->GetStatus(), 2) << "content";
    EXPECT_TRUE(Find(*page, "content_widget")->isVisible());
    const QStringList expected{QStringLiteral("home+!"),     QStringLiteral("system:s1"),
                               QStringLiteral("system:s2+"), QStringLiteral("custom:https://vx.example/1+"),
                               QStringLiteral("app:orders"), QStringLiteral("app:chat+")};
    EXPECT_EQ(Shown(), expected);
    const auto rows = Rows();
    const QList<int> kinds{1, 2, 2, 3, 4, 4};
    for (int i = 0; i < rows.size(); ++i) {
        EXPECT_EQ(rows[i]->GetItemKind(), kinds[i]);
        EXPECT_EQ(rows[i]->parentWidget(), Find(*page, kinds[i] == 4 ? "plugin_list_widget" : "list_widget"));
        EXPECT_TRUE(rows[i]->isVisible());
    }
    EXPECT_EQ(http.GetCallCount(), 1) << "nothing is written";
}

TEST_F(AutoRunSettingWidgetTest, HomeRowHasTheFixedEntryWhichIsTickedForGood)
{
    OpenPage("");
    ASSERT_EQ(Rows().size(), 1);
    AutoRunBaseItem* const home = Rows().constFirst();
    const AutoRunInfoEntityPtr entry = home->GetData();
    EXPECT_EQ(entry->itemId, QStringLiteral("FA2F7923-A7F9-4703-8255-B3218DFF6062"));
    EXPECT_EQ(entry->name, QStringLiteral("Homepage"));
    EXPECT_EQ(entry->url, QString());
    EXPECT_EQ(entry->type, 0);
    EXPECT_FALSE(entry->systemItem);
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("home+!")});
    Tick(home);
    Click(Find<QLabel>(*home, "text_label"));
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("home+!")});
    EXPECT_EQ(http.GetCallCount(), 1);
}

TEST_F(AutoRunSettingWidgetTest, RowsShareTheirEntriesWithTheLogic)
{
    OpenPage(System("s1"), Web("w1", "https://vx.example/1"), Plugin("orders"));
    QList<AutoRunInfoEntityPtr> entries;
    TLAutoRunLogic::Instance()->GetAutoRunList(entries);
    const auto rows = Rows();
    ASSERT_EQ(rows.size(), 4);
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(rows[i + 1]->GetData(), entries[i]);
    }
}

TEST_F(AutoRunSettingWidgetTest, WithoutAMarkTheHomePageOpensFirst)
{
    OpenPage(System("s1", true), Web("w1", "https://vx.example/1", true), Plugin("orders", true));
    EXPECT_EQ(Shown().constFirst(), QStringLiteral("home+!"));
    EXPECT_EQ(Shown().filter(QStringLiteral("!")).size(), 1);
}

TEST_F(AutoRunSettingWidgetTest, OfTwoMarksTheLaterOneCountsAndItsEntryIsTicked)
{
    OpenPage(System("s1", true, true), Web("w1", "https://vx.example/1"), Plugin("orders", false, true));
    const QStringList expected{QStringLiteral("home+"), QStringLiteral("system:s1+"),
                               QStringLiteral("custom:https://vx.example/1"), QStringLiteral("app:orders+!")};
    EXPECT_EQ(Shown(), expected);
    EXPECT_EQ(http.GetCallCount(), 1) << "nothing is written for that";
}

TEST_F(AutoRunSettingWidgetTest, ThreeCustomRowsCountAsThreeOfFive)
{
    OpenPage("", Webs(3), Plugins(2));
    EXPECT_EQ(CustomCount(), QStringLiteral("(3/5)"));
    EXPECT_EQ(Label("custom_count_label")->text(), CountHtml(3));
    EXPECT_EQ(PluginCount(), QStringLiteral("(2/5)"));
    EXPECT_EQ(Label("plugin_count_label")->text(), CountHtml(2));
}

TEST_F(AutoRunSettingWidgetTest, ReadThatFailsOffersToTryAgain)
{
    OpenPage("", Webs(3), Plugins(1));
    ClosePage();
    OpenPage();
    http.Fail(LastCall());
    EXPECT_EQ(Status()->GetStatus(), 1) << "failed";
    EXPECT_EQ(Shown(), QStringList()) << "the cache is not shown for the answer";
    EXPECT_EQ(CustomCount(), QStringLiteral("(0/5)")) << "the counters keep their text";

    auto* const refresh = Status()->findChild<QPushButton*>();
    ASSERT_NE(refresh, nullptr);
    ASSERT_TRUE(QTest::qWaitFor([refresh] { return refresh->isVisible(); }));
    const int calls = http.GetCallCount();
    Click(refresh);
    EXPECT_EQ(http.GetCallCount(), calls + 1);
    EXPECT_EQ(Status()->GetStatus(), 0);
    AnswerConfiguration(System("s1"));
    EXPECT_EQ(Status()->GetStatus(), 2);
    EXPECT_EQ(Shown().size(), 2);
}

TEST_F(AutoRunSettingWidgetTest, RefreshThatFailsLeavesTheCountersAndNoRows)
{
    OpenPage("", Webs(3), Plugins(2));
    Q_EMIT Status()->SigRefresh();
    EXPECT_EQ(Shown(), QStringList()) << "the rows go when the read starts";
    http.Fail(LastCall());
    EXPECT_EQ(Shown(), QStringList());
    EXPECT_EQ(CustomCount(), QStringLiteral("(3/5)"));
    EXPECT_EQ(PluginCount(), QStringLiteral("(2/5)"));
}

TEST_F(AutoRunSettingWidgetTest, ReplyThatIsNoConfigurationIsAFailedRead)
{
    OpenPage();
    http.Answer(LastCall(), "[]");
    EXPECT_EQ(Status()->GetStatus(), 1);
    EXPECT_EQ(Shown(), QStringList());
}

TEST_F(AutoRunSettingWidgetTest, RefreshWhileAReadIsUnderWayDoesNothing)
{
    OpenPage();
    Q_EMIT Status()->SigRefresh();
    EXPECT_EQ(http.GetCallCount(), 1);
    AnswerConfiguration("");
    Q_EMIT Status()->SigRefresh();
    EXPECT_EQ(http.GetCallCount(), 2);
}

TEST_F(AutoRunSettingWidgetTest, ReadOfTheLogInChangesNothingOnThePage)
{
    OpenPage(System("s1"), Webs(1));
    const auto rows = Rows();
    const QStringList shown = Shown();
    ReadConfiguration(System("other"), Webs(4));
    EXPECT_EQ(Rows(), rows) << "the very same rows";
    EXPECT_EQ(Shown(), shown);
    EXPECT_EQ(CustomCount(), QStringLiteral("(1/5)"));
}

TEST_F(AutoRunSettingWidgetTest, ReadOfTheLogInDoesNotEndThePagesOwn)
{
    OpenPage();
    ReadConfiguration(System("other"));
    EXPECT_EQ(Status()->GetStatus(), 0);
    EXPECT_EQ(Shown(), QStringList());
    const int calls = http.GetCallCount();
    Q_EMIT Status()->SigRefresh();
    EXPECT_EQ(http.GetCallCount(), calls) << "its own read is still under way";
    http.Answer(0, R"({"systemItems":[]})");
    EXPECT_EQ(Status()->GetStatus(), 2);
}

TEST_F(AutoRunSettingWidgetTest, NotificationsWithoutRequestOrResponseAreIgnored)
{
    OpenPage();
    const auto request = http.GetCall(0).request;
    const auto response = http.GetCall(0).response;
    for (const int id : {AutoRunIdentifiers::ReadFinished, AutoRunIdentifiers::WriteFinished}) {
        HttpNotifyManager::Instance()->Dispatch(id, {}, response);
        HttpNotifyManager::Instance()->Dispatch(id, request, {});
    }
    EXPECT_EQ(Status()->GetStatus(), 0);
    EXPECT_EQ(succeeded->count() + failed->count(), 0);
    Q_EMIT Status()->SigRefresh();
    EXPECT_EQ(http.GetCallCount(), 1) << "the read is still under way";
}

TEST_F(AutoRunSettingWidgetTest, AnyMouseButtonOnALinkStartsItsFlowOncePerPressAndThePressGoesOn)
{
    OpenPage("");
    PressCounter reached; // the label leaves a press to the widget that it stands in
    Find(*page, "list_widget")->installEventFilter(&reached);
    int flows = 0;
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        const DialogUser<AutoRunAddWidget> user([&flows](AutoRunAddWidget* dialog) {
            ++flows;
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        Press("add_label", button);
        EXPECT_EQ(reached.count, flows);
    }
    EXPECT_EQ(flows, 3);
    EXPECT_EQ(monitor.events.size(), 3);
    QTest::mouseRelease(Label("add_label"), Qt::LeftButton);
    QTest::keyClick(Label("add_label"), Qt::Key_Space);
    QTest::mouseMove(Label("add_label"));
    Click(Label("custom_count_label"));
    Click(Label("top_label"));
    EXPECT_EQ(monitor.events.size(), 3) << "nothing else starts it";

    PressCounter reachedBelow;
    Find(*page, "plugin_list_widget")->installEventFilter(&reachedBelow);
    flows = 0;
    for (const auto button : {Qt::LeftButton, Qt::RightButton, Qt::MiddleButton}) {
        const DialogUser<AutoRunPluginAddWidget> user([&flows](AutoRunPluginAddWidget* dialog) {
            ++flows;
            QTest::keyClick(dialog, Qt::Key_Escape);
        });
        Press("add_plugin_label", button);
        EXPECT_EQ(reachedBelow.count, flows);
    }
    EXPECT_EQ(flows, 3);
    EXPECT_EQ(monitor.events.mid(3), (QStringList{QStringLiteral("Home_Openingsetting_AddService"),
                                                  QStringLiteral("Home_Openingsetting_AddService"),
                                                  QStringLiteral("Home_Openingsetting_AddService")}));
    QTest::mouseRelease(Label("add_plugin_label"), Qt::LeftButton);
    QTest::keyClick(Label("add_plugin_label"), Qt::Key_Space);
    Click(Label("plugin_count_label"));
    Click(Label("plugin_title_label"));
    EXPECT_EQ(monitor.events.size(), 6) << "nothing else starts it";
}

TEST_F(AutoRunSettingWidgetTest, KeywordBeforeTheRowsIsHighlightedInEveryRow)
{
    OpenPage();
    page->SetKeyword(QStringLiteral("s"));
    EXPECT_TRUE(IsHighlighted(Label("top_label")));
    EXPECT_TRUE(IsHighlighted(Label("plugin_title_label")));
    AnswerConfiguration(System("s1"), Web("w1", "https://vx.example/1"), Plugin("orders"));
    const auto rows = Rows();
    ASSERT_EQ(rows.size(), 4);
    for (int i = 1; i < rows.size(); ++i) { // "Homepage" has none
        EXPECT_TRUE(IsHighlighted(Find<QLabel>(*rows[i], "text_label"))) << i;
    }
}

TEST_F(AutoRunSettingWidgetTest, KeywordAfterTheRowsIsHighlightedInTheHeadingsOnly)
{
    OpenPage(System("s1"), Web("w1", "https://vx.example/1"), Plugin("orders"));
    page->SetKeyword(QStringLiteral("s"));
    EXPECT_TRUE(IsHighlighted(Label("top_label")));
    EXPECT_TRUE(IsHighlighted(Label("plugin_title_label")));
    const auto all = Rows();
    for (const AutoRunBaseItem* const row : all) {
        EXPECT_FALSE(IsHighlighted(Find<QLabel>(*row, "text_label")));
    }
    DpiTool::SetScale(2); // makes the rows again
    EXPECT_TRUE(IsHighlighted(Find<QLabel>(*Row("s1"), "text_label")));
    page->SetKeyword(QString());
    EXPECT_EQ(Label("top_label")->text(), UrlHeading);
    EXPECT_EQ(Label("plugin_title_label")->text(), AppHeading);
}

TEST_F(AutoRunSettingWidgetTest, ChangeOfTheScaleMakesAllRowsAnewFromTheCache)
{
    OpenPage(System("s1"), Webs(1), Plugins(1));
    AddUrl(QStringLiteral("https://vx.example/new"));
    EndWrite();
    Tick(Row("s1"));
    EndWrite();
    ClickInRow(Row("orders"), "delete_button");
    EndWrite();
    const QStringList before{QStringLiteral("home+!"), QStringLiteral("system:s1+"),
                             QStringLiteral("custom:https://vx.example/1"),
                             QStringLiteral("custom:https://vx.example/new")};
    EXPECT_EQ(Shown(), before);
    QList<QPointer<AutoRunBaseItem>> rows;
    const auto all = Rows();
    for (AutoRunBaseItem* const row : all) {
        rows.append(row);
    }

    const int calls = http.GetCallCount();
    DpiTool::SetScale(1.5);
    for (const auto& row : qAsConst(rows)) {
        EXPECT_TRUE(row.isNull());
    }
    const QStringList after{QStringLiteral("home+!"), QStringLiteral("system:s1+"),
                            QStringLiteral("custom:https://vx.example/1"), QStringLiteral("app:orders")};
    EXPECT_EQ(Shown(), after) << "what was changed is in the shared entries, what was added or deleted not";
    EXPECT_EQ(CustomCount(), QStringLiteral("(1/5)"));
    EXPECT_EQ(PluginCount(), QStringLiteral("(1/5)"));
    EXPECT_EQ(http.GetCallCount(), calls);
}

TEST_F(AutoRunSettingWidgetTest, WithoutAConfigurationThereIsTheHomeRowAlone)
{
    OpenPage();
    http.Fail(LastCall());
    DpiTool::SetScale(2);
    EXPECT_EQ(Shown(), QStringList{QStringLiteral("home+!")});
    EXPECT_EQ(CustomCount(), QStringLiteral("(0/5)"));
    EXPECT_EQ(PluginCount(), QStringLiteral("(0/5)"));
}

TEST_F(AutoRunSettingWidgetTest, AnotherLanguageComesWhileThePageIsOpen)
{
    OpenPage(System("s1"), Webs(2), Plugins(3));
    SwitchToChinese();
    EXPECT_EQ(Label("top_label")->text(), QStringLiteral("设置启动时打开的网址"));
    EXPECT_EQ(Label("plugin_title_label")->text(), QStringLiteral("设置启动时打开的应用"));
    EXPECT_EQ(Label("add_label")->text(), QStringLiteral("+ 自定义网址"));
    EXPECT_EQ(Label("add_plugin_label")->text(), QStringLiteral("+ 添加应用"));
    EXPECT_EQ(Find<QLabel>(*Rows().constFirst(), "text_label")->text(), QStringLiteral("首页"));
    EXPECT_EQ(Find<QLabel>(*Row("s1"), "text_label")->text(), QStringLiteral("S1"));
    EXPECT_EQ(CustomCount(), QStringLiteral("(2/5)"));
    EXPECT_EQ(PluginCount(), QStringLiteral("(3/5)"));

    page->SetKeyword(QStringLiteral("启动"));
    EXPECT_TRUE(IsHighlighted(Label("top_label")));
    page->SetKeyword(QStringLiteral("start"));
    EXPECT_FALSE(IsHighlighted(Label("top_label")) && Label("top_label")->text().contains(UrlHeading));
    SwitchToEnglish();
    EXPECT_TRUE(IsHighlighted(Label("top_label"))) << "the word is highlighted in the new text";
    EXPECT_EQ(Label("add_label")->text(), QStringLiteral("+custom URL"));
    EXPECT_EQ(Find<QLabel>(*Rows().constFirst(), "text_label")->text(), QStringLiteral("Homepage"));
}

TEST_F(AutoRunSettingWidgetTest, CheckBoxesAreNamedByTheirEntries)
{
    OpenPage(System("s1", true), Web("w1", "https://vx.example/1"), Plugin("orders"));
    QStringList names;
    const auto all = Rows();
    for (const AutoRunBaseItem* const row : all) {
        QAccessibleInterface* const box = QAccessible::queryAccessibleInterface(Box(row));
        ASSERT_NE(box, nullptr);
        EXPECT_EQ(box->role(), QAccessible::CheckBox);
        names.append(box->text(QAccessible::Name));
    }
    const QStringList expected{QStringLiteral("Homepage"), QStringLiteral("S1"),
                               QStringLiteral("https://vx.example/1"), QStringLiteral("Orders")};
    EXPECT_EQ(names, expected);
}

TEST_F(AutoRunSettingWidgetTest, PageThatIsGoneHearsOfNothing)
{
    OpenPage();
    ClosePage();
    AnswerConfiguration(System("s1"), Webs(1));
    OpenPage("", Webs(1));
    Tick(Row("w1"));
    ClosePage();
    EndWrite();
    SUCCEED();
}

TEST_F(AutoRunSettingWidgetTest, PageMayGoWhileItTellsOfASave)
{
    OpenPage("", Webs(1));
    QObject::connect(page, &SettingItemBaseWidget::SigSaveSucceed, settings.get(), [this] { ClosePage(); });
    Tick(Row("w1"));
    EndWrite();
    EXPECT_TRUE(page.isNull());
}
