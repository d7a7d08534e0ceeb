#include "AutoRunUiTest.h"

#include "ui/AutoRunCustomItem.h"
#include "ui/AutoRunHomeItem.h"
#include "ui/AutoRunOperateWidget.h"
#include "ui/AutoRunPluginItem.h"
#include "ui/AutoRunSystemItem.h"

#include "base-ui/TLCheckBox.h"
#include "base/DpiTool.h"

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

namespace {

const QString LongAddress = QStringLiteral("https://vx.example/") + QString(200, QLatin1Char('m'));

/// Rows in a window, as a page shows them.
class AutoRunBaseItemTest : public AutoRunUiTest
{
protected:
    template <class Row = AutoRunBaseItem>
    Row* Add(const AutoRunInfoEntityPtr& entry)
    {
        auto* const row = new Row(&m_page);
        row->SetData(entry);
        m_column->addWidget(row);
        return row;
    }
    void ShowPage()
    {
        m_page.resize(800, 200);
        Show(&m_page);
    }

    static TLCheckBox* Box(const AutoRunBaseItem* row) { return Find<TLCheckBox>(*row, "checkBox"); }
    static QLabel* Text(const AutoRunBaseItem* row) { return Find<QLabel>(*row, "text_label"); }
    static QPushButton* ActiveButton(const AutoRunBaseItem* row)
    {
        return Find<QPushButton>(*row, "active_button");
    }
    static QWidget* Mark(const AutoRunBaseItem* row) { return Find(*row, "active_widget"); }
    static QPushButton* DeleteButton(const AutoRunBaseItem* row)
    {
        return Find<QPushButton>(*row, "delete_button");
    }

    static int WidthOf(const QLabel* label, const QString& text)
    {
        return label->fontMetrics().horizontalAdvance(text);
    }

    QWidget m_page;
    QVBoxLayout* m_column = new QVBoxLayout(&m_page);
};

/// Counts all signals of a row.
struct RowSpy
{
    explicit RowSpy(AutoRunBaseItem* row)
        : edits(row, &AutoRunBaseItem::SigEditItem)
        , deletes(row, &AutoRunBaseItem::SigDeleteItem)
        , actives(row, &AutoRunBaseItem::SigActiveItem)
        , checks(row, &AutoRunBaseItem::SigCheckItem)
    {}

    int Count() const { return edits.count() + deletes.count() + actives.count() + checks.count(); }

    QSignalSpy edits;
    QSignalSpy deletes;
    QSignalSpy actives;
    QSignalSpy checks;
};

AutoRunBaseItem* SenderOf(const QSignalSpy& spy)
{
    return spy.first().first().value<AutoRunBaseItem*>();
}

} // namespace

TEST_F(AutoRunBaseItemTest, HasTheNamesSizesAndTextsOfItsForm)
{
    const AutoRunBaseItem row;
    EXPECT_EQ(row.objectName(), QStringLiteral("AutoRunBaseItem"));
    EXPECT_EQ(row.windowTitle(), QStringLiteral("AutoRunBaseItem"));
    EXPECT_EQ(row.size(), QSize(400, 32));
    EXPECT_EQ(row.minimumSize(), QSize(0, 32));
    EXPECT_EQ(row.maximumSize(), QSize(16777215, 32));
    EXPECT_EQ(row.cursor().shape(), Qt::PointingHandCursor);

    EXPECT_EQ(Box(&row)->text(), QString());
    EXPECT_EQ(Box(&row)->m_sizeClass, 1);
    EXPECT_EQ(Text(&row)->text(), QStringLiteral("TextLabel"));
    EXPECT_EQ(Text(&row)->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    EXPECT_EQ(Text(&row)->sizePolicy().verticalPolicy(), QSizePolicy::Preferred);
    EXPECT_EQ(Find<QLabel>(row, "active_text_label")->text(), QStringLiteral("Priority open"));
    EXPECT_EQ(Find<QLabel>(row, "active_text_label")->parentWidget(), Mark(&row));
    EXPECT_EQ(ActiveButton(&row)->text(), QStringLiteral("Open first"));
    EXPECT_TRUE(Mark(&row)->isHidden());
    EXPECT_TRUE(ActiveButton(&row)->isHidden());
}

TEST_F(AutoRunBaseItemTest, LaysItsPartsOutFromLeftToRight)
{
    const AutoRunBaseItem row;
    auto* const layout = Find<QHBoxLayout>(row, "horizontalLayout");
    ASSERT_EQ(row.layout(), layout);
    ASSERT_EQ(layout->count(), 7);
    EXPECT_EQ(layout->itemAt(0)->widget(), Box(&row));
    EXPECT_EQ(layout->itemAt(1)->layout(), Find<QHBoxLayout>(row, "iconLabeLayout"));
    EXPECT_EQ(layout->itemAt(2)->widget(), Text(&row));
    EXPECT_EQ(layout->itemAt(3)->widget(), Mark(&row));
    ASSERT_NE(layout->itemAt(4)->spacerItem(), nullptr);
    EXPECT_EQ(layout->itemAt(4)->sizeHint(), QSize(40, 20));
    EXPECT_EQ(layout->itemAt(4)->spacerItem()->sizePolicy().horizontalPolicy(), QSizePolicy::Expanding);
    EXPECT_EQ(layout->itemAt(4)->spacerItem()->sizePolicy().verticalPolicy(), QSizePolicy::Minimum);
    EXPECT_EQ(layout->itemAt(5)->layout(), Find<QHBoxLayout>(row, "horizontalLayout_3"));
    EXPECT_EQ(layout->itemAt(6)->widget(), ActiveButton(&row));
    for (const char* name :
         {"horizontalLayout", "iconLabeLayout", "horizontalLayout_3", "activeWidgetLayout"}) {
        EXPECT_EQ(Find<QHBoxLayout>(row, name)->spacing(), 0) << name;
    }
}

TEST_F(AutoRunBaseItemTest, MarginsFollowTheScaleAndTheHeightDoesNot)
{
    const auto check = [](const AutoRunBaseItem& row, int scale) {
        EXPECT_EQ(MarginsOf(Find<QLayout>(row, "horizontalLayout")), QMargins(12, 0, 12, 0) * scale);
        EXPECT_EQ(MarginsOf(Find<QLayout>(row, "iconLabeLayout")), QMargins(0, 0, 4, 0) * scale);
        EXPECT_EQ(MarginsOf(Find<QLayout>(row, "activeWidgetLayout")), QMargins(4, 0, 0, 0) * scale);
        EXPECT_EQ(row.minimumHeight(), 32);
        EXPECT_EQ(row.maximumHeight(), 32);
    };
    const AutoRunBaseItem row;
    check(row, 1);
    DpiTool::SetScale(2);
    check(row, 2);
    check(AutoRunBaseItem(), 2);
    DpiTool::SetScale(1);
    check(row, 1);
}

TEST_F(AutoRunBaseItemTest, KindsAnswerWhatTheyAre)
{
    const auto entry = Entry(QStringLiteral("Name"), QStringLiteral("https://vx.example/"));
    struct Kind
    {
        AutoRunBaseItem* row;
        int number;
        QString text;
        bool locked;
        bool icon;
        bool operate;
    };
    const QString name = QStringLiteral("Name");
    const Kind kinds[] = {{Add<AutoRunBaseItem>(entry), 0, name, false, false, false},
                          {Add<AutoRunHomeItem>(entry), 1, name, true, false, false},
                          {Add<AutoRunSystemItem>(entry), 2, name, false, false, false},
                          {Add<AutoRunCustomItem>(entry), 3, entry->url, false, false, true},
                          {Add<AutoRunPluginItem>(entry), 4, name, false, true, true}};
    for (const Kind& kind : kinds) {
        EXPECT_EQ(kind.row->GetItemKind(), kind.number);
        EXPECT_EQ(kind.row->GetShowText(), kind.text) << kind.number;
        EXPECT_EQ(Text(kind.row)->text(), kind.text) << kind.number;
        EXPECT_EQ(kind.row->IsCheckLocked(), kind.locked) << kind.number;
        EXPECT_EQ(Box(kind.row)->isEnabled(), !kind.locked) << kind.number;
        EXPECT_EQ(kind.row->GetIconWidget() != nullptr, kind.icon) << kind.number;
        EXPECT_EQ(kind.row->GetOperateWidget() != nullptr, kind.operate) << kind.number;
        EXPECT_EQ(kind.row->objectName(), QStringLiteral("AutoRunBaseItem")) << "the theme knows one name";
    }
}

TEST_F(AutoRunBaseItemTest, HomeRowTakesNoClickOnItsBoxOrItsText)
{
    const auto entry = Entry(QStringLiteral("Homepage"));
    entry->checked = true;
    auto* const row = Add<AutoRunHomeItem>(entry);
    RowSpy spy(row);
    ShowPage();
    Click(Text(row));
    Click(Box(row));
    EXPECT_TRUE(Box(row)->isChecked());
    EXPECT_TRUE(entry->checked);
    EXPECT_EQ(spy.Count(), 0);
}

TEST_F(AutoRunBaseItemTest, LeftPressOnTheTextTogglesTheBoxAndReportsItOnce)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    RowSpy spy(row);
    ShowPage();
    QTest::mousePress(Text(row), Qt::LeftButton);
    EXPECT_TRUE(Box(row)->isChecked());
    EXPECT_TRUE(entry->checked);
    ASSERT_EQ(spy.checks.count(), 1);
    EXPECT_EQ(SenderOf(spy.checks), row);
    QTest::mouseRelease(Text(row), Qt::LeftButton);
    EXPECT_TRUE(entry->checked) << "a release does nothing";
    EXPECT_EQ(spy.Count(), 1);
    Click(Text(row));
    EXPECT_FALSE(entry->checked);
    EXPECT_EQ(spy.checks.count(), 2);
}

TEST_F(AutoRunBaseItemTest, OtherButtonsOnTheTextDoNothing)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    RowSpy spy(row);
    ShowPage();
    Click(Text(row), Qt::RightButton);
    Click(Text(row), Qt::MiddleButton);
    EXPECT_FALSE(Box(row)->isChecked());
    EXPECT_EQ(spy.Count(), 0);
}

TEST_F(AutoRunBaseItemTest, PressOnTheTextGoesOnToTheLabelAndTheRow)
{
    struct PressCounter : QObject
    {
        int presses = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            presses += event->type() == QEvent::MouseButtonPress ? 1 : 0;
            return false;
        }
    } counter;
    auto* const row = Add<AutoRunSystemItem>(Entry(QStringLiteral("Orders")));
    row->installEventFilter(&counter);
    ShowPage();
    Click(Text(row));
    EXPECT_EQ(counter.presses, 1) << "nobody ate it on its way to the parent";
}

TEST_F(AutoRunBaseItemTest, ClickAndSpaceOnTheBoxReachTheEntryAndAreReportedOnce)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    RowSpy spy(row);
    ShowPage();
    Click(Box(row));
    EXPECT_TRUE(entry->checked);
    EXPECT_EQ(spy.checks.count(), 1);
    Box(row)->setFocus();
    QTest::keyClick(Box(row), Qt::Key_Space);
    EXPECT_FALSE(entry->checked);
    EXPECT_EQ(spy.checks.count(), 2);
    EXPECT_EQ(spy.Count(), 2);
}

TEST_F(AutoRunBaseItemTest, ChangesOfTheBoxByAProgramAreNotReported)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    RowSpy spy(row);
    Box(row)->setChecked(true);
    EXPECT_EQ(spy.Count(), 0);
    EXPECT_FALSE(entry->checked);
}

TEST_F(AutoRunBaseItemTest, HoverShowsOpenFirstAndLeavingHidesIt)
{
    auto* const row = Add<AutoRunSystemItem>(Entry(QStringLiteral("Orders")));
    ShowPage();
    EXPECT_FALSE(ActiveButton(row)->isVisible());
    Hover(row);
    EXPECT_TRUE(ActiveButton(row)->isVisible());
    MoveMouseAway();
    EXPECT_FALSE(ActiveButton(row)->isVisible());
}

TEST_F(AutoRunBaseItemTest, HoverOverTheEntryOpenedFirstShowsNoOpenFirst)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    entry->activeItem = true;
    auto* const row = Add<AutoRunCustomItem>(entry);
    ShowPage();
    EXPECT_TRUE(Mark(row)->isVisible());
    Hover(row);
    EXPECT_FALSE(ActiveButton(row)->isVisible());
    EXPECT_TRUE(row->GetOperateWidget()->isVisible()) << "it can be edited all the same";
    MoveMouseAway();
    EXPECT_FALSE(ActiveButton(row)->isVisible());
    EXPECT_FALSE(row->GetOperateWidget()->isVisible());
    EXPECT_TRUE(Mark(row)->isVisible());
}

TEST_F(AutoRunBaseItemTest, LeavingHidesOpenFirstWhateverTheState)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    ShowPage();
    Hover(row);
    entry->activeItem = true;
    MoveMouseAway();
    EXPECT_FALSE(ActiveButton(row)->isVisible());
}

TEST_F(AutoRunBaseItemTest, EditAndDeleteShowUnderTheMouseOnly)
{
    auto* const row = Add<AutoRunCustomItem>(Entry(QString(), QStringLiteral("https://vx.example/")));
    QWidget* const operate = row->GetOperateWidget();
    EXPECT_EQ(operate->parentWidget(), row);
    ShowPage();
    EXPECT_FALSE(operate->isVisible());
    Hover(row);
    EXPECT_TRUE(operate->isVisible());
    EXPECT_LT(operate->x(), ActiveButton(row)->x());
    EXPECT_GT(operate->x(), Text(row)->geometry().right());
    MoveMouseAway();
    EXPECT_FALSE(operate->isVisible());
}

TEST_F(AutoRunBaseItemTest, ClickOnOpenFirstReportsItAndChangesNothing)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    RowSpy spy(row);
    ShowPage();
    Hover(row);
    Click(ActiveButton(row));
    ASSERT_EQ(spy.actives.count(), 1);
    EXPECT_EQ(SenderOf(spy.actives), row);
    EXPECT_EQ(spy.Count(), 1);
    EXPECT_FALSE(entry->activeItem);
    EXPECT_FALSE(Mark(row)->isVisible());
}

TEST_F(AutoRunBaseItemTest, ClicksOnEditAndDeleteAreReportedWithTheRow)
{
    for (AutoRunBaseItem* const row :
         {static_cast<AutoRunBaseItem*>(Add<AutoRunCustomItem>(Entry(QStringLiteral("a")))),
          static_cast<AutoRunBaseItem*>(Add<AutoRunPluginItem>(Entry(QStringLiteral("b"))))}) {
        RowSpy spy(row);
        ShowPage();
        Hover(row);
        Click(Find<QPushButton>(*row, "edit_button"));
        ASSERT_EQ(spy.edits.count(), 1);
        EXPECT_EQ(SenderOf(spy.edits), row);
        EXPECT_EQ(spy.Count(), 1);
        Click(DeleteButton(row));
        ASSERT_EQ(spy.deletes.count(), 1);
        EXPECT_EQ(SenderOf(spy.deletes), row);
        EXPECT_EQ(spy.Count(), 2);
        MoveMouseAway();
    }
}

TEST_F(AutoRunBaseItemTest, SetActiveMarksTheRowAndTakesTheButtonAway)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    RowSpy spy(row);
    ShowPage();
    Hover(row);
    row->SetActive(true);
    EXPECT_TRUE(entry->activeItem);
    EXPECT_TRUE(row->IsActive());
    EXPECT_TRUE(Mark(row)->isVisible());
    EXPECT_FALSE(ActiveButton(row)->isVisible());

    row->SetActive(false);
    EXPECT_FALSE(entry->activeItem);
    EXPECT_FALSE(row->IsActive());
    EXPECT_FALSE(Mark(row)->isVisible());
    EXPECT_FALSE(ActiveButton(row)->isVisible()) << "until the mouse comes again";
    MoveMouseAway();
    Hover(row);
    EXPECT_TRUE(ActiveButton(row)->isVisible());
    EXPECT_EQ(spy.Count(), 0);
}

TEST_F(AutoRunBaseItemTest, SetCheckedChangesBoxAndEntryWithoutASignal)
{
    const auto entry = Entry(QStringLiteral("Orders"));
    auto* const row = Add<AutoRunSystemItem>(entry);
    RowSpy spy(row);
    row->SetChecked(true);
    EXPECT_TRUE(entry->checked);
    EXPECT_TRUE(Box(row)->isChecked());
    row->SetChecked(false);
    EXPECT_FALSE(entry->checked);
    EXPECT_FALSE(Box(row)->isChecked());
    EXPECT_EQ(spy.Count(), 0);
}

TEST_F(AutoRunBaseItemTest, RowWithoutEntryDoesNothing)
{
    AutoRunBaseItem row;
    RowSpy spy(&row);
    EXPECT_TRUE(row.GetData().isNull());
    EXPECT_EQ(row.GetItemId(), QString());
    EXPECT_EQ(row.GetShowText(), QString());
    EXPECT_EQ(AutoRunCustomItem().GetShowText(), QString());
    EXPECT_EQ(AutoRunPluginItem().GetIconUrl(), QString());
    row.SetActive(true);
    EXPECT_TRUE(Mark(&row)->isHidden());
    EXPECT_FALSE(row.IsActive());
    row.SetChecked(true);
    EXPECT_FALSE(Box(&row)->isChecked());
    Box(&row)->click();
    EXPECT_EQ(spy.Count(), 0);
    row.SetData({});
    EXPECT_EQ(Text(&row)->text(), QStringLiteral("TextLabel"));
}

TEST_F(AutoRunBaseItemTest, HoldsOneReferenceAndGivesTheOldOneBack)
{
    auto first = Entry(QStringLiteral("first"));
    const auto second = Entry(QStringLiteral("second"));
    const QWeakPointer<AutoRunInfoEntity> old = first;
    auto* const row = Add<AutoRunSystemItem>(first);
    EXPECT_EQ(row->GetData(), first);
    EXPECT_EQ(row->GetItemId(), QStringLiteral("{id}"));
    first.clear();
    EXPECT_FALSE(old.isNull()) << "the row keeps it alive";
    row->SetData(second);
    EXPECT_TRUE(old.isNull());
    EXPECT_EQ(Text(row)->text(), QStringLiteral("second"));
    row->SetData({});
    EXPECT_TRUE(row->GetData().isNull());
}

TEST_F(AutoRunBaseItemTest, SetDataShowsWhatHasChangedInTheEntry)
{
    const auto entry = Entry(QString(), QStringLiteral("https://vx.example/a"));
    auto* const row = Add<AutoRunCustomItem>(entry);
    entry->url = QStringLiteral("https://vx.example/b");
    entry->checked = true;
    entry->activeItem = true;
    ShowPage();
    Hover(row);
    row->SetData(entry);
    EXPECT_EQ(Text(row)->text(), entry->url);
    EXPECT_TRUE(Box(row)->isChecked());
    EXPECT_TRUE(Mark(row)->isVisible());
    EXPECT_FALSE(row->GetOperateWidget()->isVisible()) << "until the mouse comes again";
    entry->activeItem = false;
    row->SetData(entry);
    EXPECT_FALSE(Mark(row)->isVisible());
}

TEST_F(AutoRunBaseItemTest, AskingTwiceForTheControlsGivesTheSameOnesConnectedOnce)
{
    for (AutoRunBaseItem* const row :
         {static_cast<AutoRunBaseItem*>(Add<AutoRunCustomItem>(Entry(QStringLiteral("a")))),
          static_cast<AutoRunBaseItem*>(Add<AutoRunPluginItem>(Entry(QStringLiteral("b"))))}) {
        QWidget* const operate = row->GetOperateWidget();
        EXPECT_EQ(row->GetOperateWidget(), operate);
        row->SetData(row->GetData());
        EXPECT_EQ(row->GetOperateWidget(), operate);
        EXPECT_EQ(row->findChildren<AutoRunOperateWidget*>().size(), 1);
        EXPECT_EQ(Find<QHBoxLayout>(*row, "horizontalLayout_3")->count(), 1);
        RowSpy spy(row);
        DeleteButton(row)->click();
        Find<QPushButton>(*row, "edit_button")->click();
        EXPECT_EQ(spy.deletes.count(), 1);
        EXPECT_EQ(spy.edits.count(), 1);
    }
}

TEST_F(AutoRunBaseItemTest, LongAddressIsElidedAtTheRightAndAgainAfterAResize)
{
    for (const int scale : {1, 2}) {
        DpiTool::SetScale(scale);
        auto* const row = Add<AutoRunCustomItem>(Entry(QString(), LongAddress));
        m_page.resize(1200, 100);
        Show(&m_page);
        const QString shown = Text(row)->text();
        EXPECT_TRUE(shown.startsWith(QStringLiteral("https://vx.example/m")));
        EXPECT_TRUE(shown.endsWith(QChar(0x2026))) << qPrintable(shown);
        EXPECT_LE(WidthOf(Text(row), shown), 388 * scale);
        EXPECT_GT(WidthOf(Text(row), shown), 388 * scale - WidthOf(Text(row), QStringLiteral("mm")));
        EXPECT_EQ(Text(row)->width(), Text(row)->sizeHint().width()) << "as wide as its text";

        Text(row)->setText(QStringLiteral("x"));
        m_page.resize(1250, 100);
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(Text(row)->text(), shown) << "a resize elides again";

        QFont larger = Text(row)->font();
        larger.setPixelSize(30);
        Text(row)->setFont(larger);
        m_page.resize(1200, 100);
        QCoreApplication::sendPostedEvents();
        EXPECT_LT(Text(row)->text().size(), shown.size()) << "in the label's own font";
        EXPECT_LE(WidthOf(Text(row), Text(row)->text()), 388 * scale);
        delete row;
        m_page.hide();
    }
}

TEST_F(AutoRunBaseItemTest, WholeTextIsTheToolTipWhenItIsElidedAndOnlyThen)
{
    auto* const row = Add<AutoRunCustomItem>(Entry(QString(), LongAddress + QStringLiteral("<b>&x</b>")));
    EXPECT_EQ(Text(row)->toolTip(), QStringLiteral("<p>%1&lt;b&gt;&amp;x&lt;/b&gt;</p>").arg(LongAddress));
    auto* const small = Add<AutoRunCustomItem>(Entry(QString(), QStringLiteral("https://vx.example/")));
    EXPECT_EQ(Text(small)->toolTip(), QString());
}

TEST_F(AutoRunBaseItemTest, BoxIsNamedByItsEntryForScreenReaders)
{
    auto* const row = Add<AutoRunCustomItem>(Entry(QString(), LongAddress));
    EXPECT_EQ(QAccessible::queryAccessibleInterface(Box(row))->text(QAccessible::Name), LongAddress);
    EXPECT_EQ(QAccessible::queryAccessibleInterface(Box(row))->role(), QAccessible::CheckBox);
}

TEST_F(AutoRunBaseItemTest, NamesAreShownAsTextWhateverIsInThem)
{
    for (const char* utf8 :
         {"<b>bold</b>", "<img src=file:///etc/passwd>", "<font color=red>x</font><br>y", "&amp;&lt;",
          "a & b", "Tom &amp;Jerry",
          "\xF0\x9F\x9B\x92 \xF0\x9F\x91\xA8\xE2\x80\x8D\xF0\x9F\x91\xA9\xE2\x80\x8D\xF0\x9F\x91\xA7",
          "\xD7\xA9\xD7\x9C\xD7\x95\xD7\x9D abc",
          "\xE2\x80\xAE"
          "desrever",
          "%1 %2 %n", "\xE4\xB8\xAD\xE6\x96\x87"}) {
        const QString name = QString::fromUtf8(utf8);
        auto* const row = Add<AutoRunSystemItem>(Entry(name));
        ShowPage();
        EXPECT_EQ(Text(row)->text(), name);
        EXPECT_EQ(Text(row)->textFormat(), Qt::PlainText);
        row->SetKeyword(QStringLiteral("b"));
        row->SetKeyword(QString());
        EXPECT_EQ(Text(row)->text(), name);
        EXPECT_EQ(Text(row)->textFormat(), Qt::PlainText) << "also after a search";
        delete row;
    }
}

TEST_F(AutoRunBaseItemTest, KeywordIsHighlightedInTheTextAndStaysSoAfterAResize)
{
    auto* const row = Add<AutoRunSystemItem>(Entry(QStringLiteral("My <Orders>")));
    ShowPage();
    row->SetKeyword(QStringLiteral("order"));
    const QString highlighted = Text(row)->text();
    EXPECT_TRUE(highlighted.contains(QStringLiteral(">Order</span>s&gt;"))) << qPrintable(highlighted);
    m_page.resize(900, 200);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Text(row)->text(), highlighted);
    row->SetKeyword(QString());
    EXPECT_EQ(Text(row)->text(), QStringLiteral("My <Orders>"));
}

TEST_F(AutoRunBaseItemTest, SetDataForgetsTheKeyword)
{
    auto* const row = Add<AutoRunSystemItem>(Entry(QStringLiteral("Orders")));
    ShowPage();
    row->SetKeyword(QStringLiteral("order"));
    row->SetData(Entry(QStringLiteral("More orders")));
    EXPECT_EQ(Text(row)->text(), QStringLiteral("More orders"));
    m_page.resize(900, 200);
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(Text(row)->text(), QStringLiteral("More orders"));
}

TEST_F(AutoRunBaseItemTest, TextsFollowTheLanguageAndTheEntrysTextStays)
{
    auto* const row = Add<AutoRunSystemItem>(Entry(QStringLiteral("Orders")));
    auto* const searched = Add<AutoRunSystemItem>(Entry(QStringLiteral("Orders")));
    const AutoRunBaseItem unbound(&m_page);
    searched->SetKeyword(QStringLiteral("ord"));
    const QString highlighted = Text(searched)->text();
    ShowPage();
    SwitchToChinese();
    EXPECT_EQ(ActiveButton(row)->text(), QString::fromUtf8("设为优先"));
    EXPECT_EQ(Find<QLabel>(*row, "active_text_label")->text(), QString::fromUtf8("优先打开"));
    EXPECT_EQ(Text(row)->text(), QStringLiteral("Orders"));
    EXPECT_EQ(Text(searched)->text(), highlighted);
    SwitchToEnglish();
    EXPECT_EQ(ActiveButton(row)->text(), QStringLiteral("Open first"));
    EXPECT_EQ(Text(row)->text(), QStringLiteral("Orders"));
}

/// Who gets a row's signal may destroy the row at once: its page does so with a row that is deleted, and
/// with all rows when it is built again. Meant for a build with the address sanitizer.
class AutoRunBaseItemDestroyedTest : public AutoRunBaseItemTest
{
protected:
    AutoRunBaseItemDestroyedTest()
    {
        m_row = Add<AutoRunCustomItem>(Entry(QString(), QStringLiteral("https://vx.example/")));
        for (auto signal : {&AutoRunBaseItem::SigEditItem, &AutoRunBaseItem::SigDeleteItem,
                            &AutoRunBaseItem::SigActiveItem, &AutoRunBaseItem::SigCheckItem}) {
            QObject::connect(m_row, signal, &m_page, [this](AutoRunBaseItem* row) {
                EXPECT_EQ(row, m_row);
                delete row;
            });
        }
        ShowPage();
        Hover(m_row);
    }
    ~AutoRunBaseItemDestroyedTest() override
    {
        EXPECT_TRUE(m_row.isNull());
        QCoreApplication::sendPostedEvents();
        QCoreApplication::processEvents();
    }

    /// The mouse as the window system tells of it, so that all of Qt's delivery is under it.
    void ClickThroughTheWindow(QWidget* widget)
    {
        EXPECT_TRUE(widget->isVisible());
        const QPoint point = widget->mapTo(&m_page, widget->rect().center());
        QTest::mouseClick(m_page.windowHandle(), Qt::LeftButton, Qt::NoModifier, point);
        QCoreApplication::processEvents();
    }

    QPointer<AutoRunCustomItem> m_row;
};

TEST_F(AutoRunBaseItemDestroyedTest, ByAClickOnDelete)
{
    ClickThroughTheWindow(DeleteButton(m_row));
}

TEST_F(AutoRunBaseItemDestroyedTest, BySpaceOnDelete)
{
    DeleteButton(m_row)->setFocus();
    QTest::keyClick(m_page.windowHandle(), Qt::Key_Space);
}

TEST_F(AutoRunBaseItemDestroyedTest, ByAClickOnEdit)
{
    ClickThroughTheWindow(Find<QPushButton>(*m_row, "edit_button"));
}

TEST_F(AutoRunBaseItemDestroyedTest, ByAClickOnOpenFirst)
{
    ClickThroughTheWindow(ActiveButton(m_row));
}

TEST_F(AutoRunBaseItemDestroyedTest, BySpaceOnOpenFirst)
{
    ActiveButton(m_row)->setFocus();
    QTest::keyClick(m_page.windowHandle(), Qt::Key_Space);
}

TEST_F(AutoRunBaseItemDestroyedTest, ByAClickOnTheBox)
{
    ClickThroughTheWindow(Box(m_row));
}

TEST_F(AutoRunBaseItemDestroyedTest, BySpaceOnTheBox)
{
    Box(m_row)->setFocus();
    QTest::keyClick(m_page.windowHandle(), Qt::Key_Space);
}

TEST_F(AutoRunBaseItemDestroyedTest, ByAPressOnTheText)
{
    ClickThroughTheWindow(Text(m_row));
}

TEST_F(AutoRunBaseItemDestroyedTest, ByThePressOfAScreenReader)
{
    QAccessibleInterface* const button = QAccessible::queryAccessibleInterface(DeleteButton(m_row));
    button->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_TRUE(QTest::qWaitFor([this] { return m_row.isNull(); }));
}
