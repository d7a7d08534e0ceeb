#include "MainWindowTest.h"

#include "AddressBar.h"
#include "EarlierTabsDialog.h"
#include "FindBar.h"
#include "HomePage.h"
#include "MessagePage.h"
#include "PlainPageView.h"
#include "TabButton.h"
#include "TabListPopup.h"
#include "TabStrip.h"
#include "look/IconLabel.h"
#include "look/ThemeManager.h"
#include "notices/NoticeBar.h"
#include "pages/PageDialog.h"

#include "base/DpiTool.h"

#include <QtGui/QFontInfo>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QListWidget>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QProgressBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleOptionButton>
#include <QtWidgets/QStyleOptionFrame>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeView>

#include <functional>
#include <memory>

namespace {

struct Measure
{
    QString name;
    int pixels;
};

void AddMeasures(const QLayout& layout, QVector<Measure>* measures)
{
    const QMargins margins = layout.contentsMargins();
    const QString name = QStringLiteral("layout %1 of %2 %3")
                             .arg(measures->size())
                             .arg(QLatin1String(layout.parentWidget()->metaObject()->className()),
                                  layout.parentWidget()->objectName());
    for (const int pixels : {margins.left(), margins.top(), margins.right(), margins.bottom()})
        measures->append({name, pixels});
    int parts = 0; // without the gaps, which have no spacing around them
    for (int i = 0; i < layout.count(); ++i) {
        if (QSpacerItem* gap = layout.itemAt(i)->spacerItem())
            measures->append({name + QStringLiteral(", gap"), gap->sizeHint().height()});
        else
            ++parts;
    }
    if (parts > 1)
        measures->append({name + QStringLiteral(", spacing"), layout.spacing()});
}

/// Whatever of the widget and its children has been set to a number of pixels.
QVector<Measure> GetMeasures(const QWidget& top)
{
    QVector<Measure> measures;
    const auto widgets = top.findChildren<QWidget*>();
    for (const QWidget* widget : widgets) {
        // Qt makes these by itself.
        if (widget->objectName().startsWith(QLatin1String("qt_")) ||
            qobject_cast<QLineEdit*>(widget->parent()))
            continue;
        const QString name =
            QLatin1String(widget->metaObject()->className()) + QLatin1Char(' ') + widget->objectName();
        const QMargins margins = widget->contentsMargins();
        if (qobject_cast<const QLabel*>(widget) || qobject_cast<const QDialogButtonBox*>(widget)) {
            measures.append({name + QStringLiteral(", left"), margins.left()});
            measures.append({name + QStringLiteral(", top"), margins.top()});
        }
        if (widget->maximumWidth() < QWIDGETSIZE_MAX)
            measures.append({name + QStringLiteral(", width"), widget->maximumWidth()});
        // That of a list comes from its rows.
        if (widget->maximumHeight() < QWIDGETSIZE_MAX && !qobject_cast<const QListWidget*>(widget))
            measures.append({name + QStringLiteral(", height"), widget->maximumHeight()});
        if (const auto* button = qobject_cast<const QToolButton*>(widget))
            measures.append({name + QStringLiteral(", icon"), button->iconSize().width()});
    }
    const auto layouts = top.findChildren<QLayout*>();
    for (const QLayout* layout : layouts)
        AddMeasures(*layout, &measures);
    return measures;
}

/// The part of the picture that is of the colour.
QRect GetBounds(const QImage& picture, const QColor& color)
{
    QRect bounds;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == color)
                bounds |= QRect(x, y, 1, 1);
        }
    }
    return bounds;
}

EarlierTabSet MakeEarlierSet()
{
    TabRecord tab;
    tab.routerUrl = QStringLiteral("tl://browser/open?url=https%3A%2F%2Fa.example%2F");
    tab.title = QStringLiteral("A");
    tab.address = QUrl(QStringLiteral("https://a.example/"));
    tab.iconUrl = QStringLiteral("https://a.example/icon.png");
    EarlierTabSet set;
    set.when = QDateTime::currentDateTime();
    set.reason = EarlierTabSet::Reason::Declined;
    set.tabs = {tab, tab};
    return set;
}

const double Scales[] = {1.25, 1.5, 2};

} // namespace

class ScaleTest : public MainWindowTest
{
protected:
    ~ScaleTest() override { SetScale(1); }

    /// The fonts follow the scale as the client's do.
    void SetScale(double scale)
    {
        QFont font = m_font;
        if (scale > 1)
            font.setPixelSize(qRound(QFontInfo(m_font).pixelSize() * scale));
        QApplication::setFont(font);
        DpiTool::SetScale(scale);
        QCoreApplication::sendPostedEvents();
    }

    /// Makes the widget at each scale, and brings a shown one from each scale to each other.
    void ExpectToFollow(const std::function<std::unique_ptr<QWidget>()>& make)
    {
        const auto shown = make();
        shown->show();
        const QVector<Measure> before = GetMeasures(*shown);
        ASSERT_FALSE(before.isEmpty());
        const auto expect = [&before](const QWidget& widget, double scale) {
            const QVector<Measure> now = GetMeasures(widget);
            ASSERT_EQ(now.size(), before.size());
            for (int i = 0; i < now.size(); ++i)
                EXPECT_EQ(now.at(i).pixels, qRound(before.at(i).pixels * scale))
                    << qPrintable(now.at(i).name) << " at " << scale;
        };
        for (const double scale : {1.5, 2.0, 1.25, 1.0}) {
            SetScale(scale);
            expect(*shown, scale);
            expect(*make(), scale);
        }
    }

    std::unique_ptr<HomePage> MakeHome()
    {
        return std::make_unique<HomePage>(
            QStringLiteral("Anna"), &m_apps,
            [](const QString&, QObject*, const std::function<void(const QPixmap&)>& done) {
                QPixmap picture(128, 128);
                picture.fill(Qt::red);
                done(picture);
            });
    }

    QVector<QSize> GetSizes() const
    {
        const auto* strip = m_window->findChild<TabStrip*>();
        QVector<QSize> sizes = {QSize(0, strip->height()), strip->GetButton(0)->size(),
                                QSize(0, m_window->findChild<AddressBar*>()->height())};
        for (const char* name : {"back_button", "menu_button", "strip_add", "strip_list"}) {
            const auto* button = m_window->findChild<QToolButton*>(QLatin1String(name));
            sizes << button->size() << button->iconSize();
        }
        return sizes;
    }

    const QFont m_font = QApplication::font();
};

TEST_F(ScaleTest, TheBarsAreTwiceAsHighAtTwiceTheScaleAndAsBeforeAfterwards)
{
    const QVector<QSize> before = GetSizes();
    SetScale(2);
    const QVector<QSize> twice = GetSizes();
    for (int i = 0; i < before.size(); ++i) {
        EXPECT_EQ(twice.at(i).height(), 2 * before.at(i).height()) << i;
    }
    SetScale(1);
    EXPECT_EQ(GetSizes(), before);
}

TEST_F(ScaleTest, TheTitleOfHomeIsNotElidedAtAnyScale)
{
    const TabButton* home = m_window->findChild<TabStrip*>()->GetButton(0);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SetScale(scale);
        EXPECT_GE(home->width(), home->sizeHint().width()) << scale;
        // The tool tip is there for titles that are cut off.
        EXPECT_EQ(home->toolTip(), QString()) << scale;
    }
}

TEST_F(ScaleTest, HomeFollows)
{
    ExpectToFollow([this] { return MakeHome(); });
}

TEST_F(ScaleTest, NoticesFollow)
{
    ExpectToFollow([] {
        auto bar = std::make_unique<NoticeBar>();
        NoticeAction action;
        action.text = QStringLiteral("Do");
        bar->Show(QStringLiteral("a"), NoticeKind::Warning, QStringLiteral("text"), {action, action});
        bar->SetProgress(QStringLiteral("a"), 50);
        return bar;
    });
}

TEST_F(ScaleTest, TheFindBarFollows)
{
    ExpectToFollow([] { return std::make_unique<FindBar>(); });
}

TEST_F(ScaleTest, TheMessagePageFollows)
{
    ExpectToFollow([] {
        auto page = std::make_unique<MessagePage>();
        page->SetContent({QStringLiteral("warning"), QStringLiteral("headline"), QStringLiteral("text"),
                          QStringLiteral("https://a.example/"), QStringLiteral("detail"),
                          QStringLiteral("button")});
        return page;
    });
}

TEST_F(ScaleTest, ThePlainPageFollows)
{
    ExpectToFollow([] { return std::make_unique<PlainPageView>(); });
}

TEST_F(ScaleTest, ThePageDialogFollows)
{
    ExpectToFollow([] {
        return std::make_unique<PageDialog>(PageDialog::Kind::Prompt, QUrl(), QStringLiteral("text"),
                                            QString(), true);
    });
}

TEST_F(ScaleTest, TheDialogOfEarlierTabsFollows)
{
    ExpectToFollow(
        [] { return std::make_unique<EarlierTabsDialog>(QVector<EarlierTabSet>{MakeEarlierSet()}); });
}

TEST_F(ScaleTest, TheListOfTabsFollows)
{
    ExpectToFollow([this] {
        auto list = std::make_unique<TabListPopup>(QStringList({QStringLiteral("a")}), 0, nullptr);
        list->setAttribute(Qt::WA_DeleteOnClose, false);
        list->PopUp(m_window->findChild<QToolButton*>(QStringLiteral("strip_list")));
        return list;
    });
}

TEST_F(ScaleTest, SizesAreThoseOfTheScaleNotOnlyInProportion)
{
    const auto home = MakeHome();
    NoticeBar notices;
    notices.Show(QStringLiteral("a"), NoticeKind::Info, QStringLiteral("text"));
    FindBar find;
    const MessagePage message;
    const PageDialog dialog(PageDialog::Kind::Alert, QUrl(), QString(), QString(), false);
    const auto height = [&notices](const char* name) {
        return notices.findChild<QWidget*>(QLatin1String(name))->maximumHeight();
    };
    struct
    {
        double scale;
        int search, sign, close, line, field, message, dialog;
    } const rows[] = {{1, 280, 18, 16, 4, 280, 560, 440},
                      {1.5, 420, 27, 24, 6, 420, 840, 660},
                      {2, 560, 36, 32, 8, 560, 1120, 880}};
    for (const auto& row : rows) {
        SetScale(row.scale);
        EXPECT_EQ(home->findChild<QLineEdit*>(QStringLiteral("home_search"))->width(), row.search);
        EXPECT_EQ(notices.findChild<IconLabel*>()->width(), row.sign);
        EXPECT_EQ(notices.findChild<QToolButton*>(QStringLiteral("notice_close"))->iconSize(),
                  QSize(row.close, row.close));
        EXPECT_EQ(height("notice_progress"), row.line);
        EXPECT_EQ(find.findChild<QLineEdit*>()->maximumWidth(), row.field);
        EXPECT_EQ(message.findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly)->maximumWidth(),
                  row.message);
        EXPECT_EQ(dialog.minimumWidth(), row.dialog);
    }
}

TEST_F(ScaleTest, TilesAreDrawnInTheirSize)
{
    const auto home = MakeHome();
    home->resize(700, 600);
    home->show();
    const auto* grid = home->findChild<QListView*>(QStringLiteral("app_grid"));
    for (const double scale : {1.0, 1.5, 2.0, 1.25}) {
        SetScale(scale);
        QRect tile;
        ASSERT_TRUE(QTest::qWaitFor([&] {
            tile = grid->visualRect(grid->model()->index(1, 0));
            return tile.width() == qRound(128 * scale);
        })) << scale;
        EXPECT_EQ(tile.height(), qRound(16 * scale) + qRound(48 * scale) + qRound(8 * scale) +
                                     2 * QFontMetrics(grid->font()).lineSpacing() + qRound(8 * scale));
        const QRect first = grid->visualRect(grid->model()->index(0, 0));
        EXPECT_EQ(tile.left() - first.right() - 1, qRound(4 * scale));

        const QRect icon = GetBounds(grid->viewport()->grab(tile).toImage(), Qt::red);
        EXPECT_EQ(icon.size(), QSize(qRound(48 * scale), qRound(48 * scale))) << scale;
        EXPECT_EQ(icon.top(), qRound(16 * scale)) << scale;
        EXPECT_NEAR(icon.center().x(), tile.width() / 2, 1) << scale;
    }
}

TEST_F(ScaleTest, RowsOfEarlierTabsAreDrawnInTheirSize)
{
    EarlierTabsDialog dialog({MakeEarlierSet()},
                             [](const QString&, QObject*, const std::function<void(const QPixmap&)>& done) {
                                 QPixmap picture(64, 64);
                                 picture.fill(Qt::red);
                                 done(picture);
                             });
    dialog.open();
    auto* tree = dialog.findChild<QTreeView*>();
    const QModelIndex tab = tree->model()->index(0, 0, tree->model()->index(0, 0));
    for (const double scale : {1.0, 1.5, 2.0, 1.25}) {
        SetScale(scale);
        const QRect row = tree->visualRect(tab);
        EXPECT_EQ(row.height(),
                  2 * QFontMetrics(tree->font()).height() + qRound(2 * scale) + 2 * qRound(6 * scale));
        EXPECT_EQ(row.left(), 2 * qRound(20 * scale));
        QRect icon;
        ASSERT_TRUE(QTest::qWaitFor([&] { // until the picture has come
            icon = GetBounds(tree->viewport()->grab(row).toImage(), Qt::red);
            return icon.isValid();
        }));
        EXPECT_EQ(icon.size(), QSize(qRound(16 * scale), qRound(16 * scale))) << scale;
        EXPECT_EQ(icon.left(), qRound(8 * scale) + qRound(16 * scale) + qRound(10 * scale)) << scale;
        // A click ticks where the box is drawn, and not beside it.
        auto* open = dialog.findChild<QPushButton*>(QStringLiteral("earlier_tabs_open"));
        const QModelIndex set = tab.parent();
        const QRect top = tree->visualRect(set);
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          QPoint(top.left() + qRound(8 * scale) + qRound(15 * scale), top.center().y()));
        EXPECT_TRUE(open->isEnabled()) << scale;
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          QPoint(top.left() + qRound(45 * scale), top.center().y()));
        EXPECT_TRUE(open->isEnabled()) << scale;
        QTest::mouseClick(tree->viewport(), Qt::LeftButton, {},
                          QPoint(top.left() + qRound(9 * scale), top.center().y()));
        EXPECT_FALSE(open->isEnabled()) << scale;
    }
}

TEST_F(ScaleTest, RowsOfEarlierTabsFollowWithoutAnotherFont)
{
    EarlierTabsDialog dialog({MakeEarlierSet()});
    dialog.open();
    const auto* tree = dialog.findChild<QTreeView*>();
    const int text = 2 * QFontMetrics(tree->font()).height();
    const auto height = [tree] { return tree->visualRect(tree->model()->index(0, 0)).height(); };
    EXPECT_EQ(height(), text + 2 + 2 * 6);
    DpiTool::SetScale(2);
    EXPECT_EQ(height(), text + 4 + 2 * 12);
}

TEST_F(ScaleTest, WindowsAreNeverMadeLargerThanTheScreen)
{
    const QSize room = m_window->screen()->availableSize() * 0.9;
    EarlierTabsDialog dialog({MakeEarlierSet()});
    EXPECT_EQ(m_window->minimumSize(), QSize(480, 320).boundedTo(room));
    EXPECT_EQ(dialog.minimumSize(), QSize(440, 280).boundedTo(room));
    SetScale(2);
    EXPECT_EQ(m_window->minimumSize(), QSize(960, 640).boundedTo(room));
    EXPECT_EQ(dialog.minimumSize(), QSize(880, 560).boundedTo(room));
    dialog.show();
    EXPECT_EQ(dialog.size(), QSize(1280, 1120).boundedTo(room));
}

TEST_F(ScaleTest, AnOpenListOfTabsStaysBelowItsButton)
{
    ThemeManager themes;
    themes.Apply(Theme::Light);
    const QRect screen = m_window->screen()->availableGeometry();
    m_window->resize(600, 600); // so that the button is on the screen
    QStringList titles;
    for (int i = 0; i < 5; ++i)
        titles << QStringLiteral("Tab %1").arg(i);
    auto* anchor = m_window->findChild<QToolButton*>(QStringLiteral("strip_list"));
    TabListPopup list(titles, 0, nullptr);
    list.setAttribute(Qt::WA_DeleteOnClose, false);
    list.PopUp(anchor);
    const auto* rows = list.findChild<QListWidget*>();
    for (const double scale : {1.5, 1.25, 1.0}) {
        SetScale(scale);
        EXPECT_EQ(list.width(), qRound(360 * scale));
        EXPECT_EQ(list.x() + list.width() - 1, anchor->mapToGlobal(anchor->rect().bottomRight()).x())
            << scale;
        EXPECT_EQ(list.y(), anchor->mapToGlobal(QPoint(0, anchor->height())).y() + qRound(4 * scale));
        EXPECT_EQ(rows->height(), 5 * qMax(rows->sizeHintForRow(0), qRound(24 * scale)) + qRound(4 * scale));
        EXPECT_EQ(list.height(), rows->height() + list.findChild<QLineEdit*>()->height() +
                                     3 * qRound(8 * scale) + 2 * qRound(scale))
            << scale;
    }
    SetScale(4);
    EXPECT_LE(list.width(), screen.width());
    qApp->setStyleSheet(QString());
}

TEST_F(ScaleTest, AnOpenQuestionOfAPageIsAsLargeAsItHasToBe)
{
    ThemeManager themes;
    themes.Apply(Theme::Light);
    PageDialog dialog(PageDialog::Kind::Prompt, QUrl(), QStringLiteral("text"), QString(), true);
    dialog.show();
    const QSize before = dialog.size();
    for (const double scale : {1.5, 1.25, 1.0}) {
        SetScale(scale);
        EXPECT_EQ(dialog.width(), qRound(440 * scale));
        EXPECT_EQ(dialog.height(), dialog.heightForWidth(dialog.width())) << scale;
    }
    EXPECT_EQ(dialog.size(), before);
    qApp->setStyleSheet(QString());
}

TEST_F(ScaleTest, TheGreetingIsNotCutOffInANarrowWindow)
{
    const auto* greeting = m_window->findChild<QLabel*>(QStringLiteral("home_greeting"));
    for (const double scale : {1.0, 1.25, 1.5}) {
        SetScale(scale);
        m_window->resize(m_window->minimumSize());
        QCoreApplication::sendPostedEvents();
        const QRect text = greeting->fontMetrics().boundingRect(
            QRect(0, 0, greeting->width(), QWIDGETSIZE_MAX), Qt::TextWordWrap, greeting->text());
        EXPECT_GE(greeting->width(), text.width()) << scale;
        EXPECT_GE(greeting->height(), text.height()) << scale;
    }
}

TEST_F(ScaleTest, HeadlinesStayLargerThanTheText)
{
    const auto home = MakeHome();
    MessagePage message;
    PlainPageView page;
    const auto size = [](const QWidget& top, const char* name) {
        return QFontInfo(top.findChild<QWidget*>(QLatin1String(name))->font()).pixelSize();
    };
    for (const double scale : {1.0, 1.5, 2.0, 1.25, 1.0}) {
        SetScale(scale);
        const int text = QFontInfo(QApplication::font()).pixelSize();
        const auto fresh = MakeHome();
        EXPECT_EQ(size(*home, "home_greeting"), 2 * text) << scale;
        EXPECT_EQ(size(*fresh, "home_greeting"), 2 * text) << scale;
        EXPECT_EQ(size(message, "message_headline"), qRound(1.7 * text)) << scale;
        EXPECT_EQ(size(page, "plain_page_title"), qRound(1.4 * text)) << scale;
        EXPECT_EQ(size(message, "message_text"), text) << scale;
    }
}

TEST_F(ScaleTest, ThePlainPageIsZoomedOnTopOfTheScale)
{
    PlainPageView page;
    const auto* text = page.findChild<QPlainTextEdit*>();
    page.SetZoom(2);
    for (const double scale : {1.0, 1.5, 2.0}) {
        SetScale(scale);
        EXPECT_EQ(QFontInfo(text->font()).pixelSize(), 2 * QFontInfo(QApplication::font()).pixelSize());
    }
    page.SetZoom(1);
    EXPECT_EQ(QFontInfo(text->font()).pixelSize(), QFontInfo(QApplication::font()).pixelSize());
}

TEST_F(ScaleTest, ThemedWidgetsAreTwiceAsHighAtTwiceTheScale)
{
    ThemeManager themes;
    themes.Apply(Theme::Light);
    QPushButton button(QStringLiteral("Text"));
    QLineEdit field;
    NoticeBar notices;
    NoticeAction action;
    action.text = QStringLiteral("Do");
    notices.Show(QStringLiteral("a"), NoticeKind::Info, QStringLiteral("text"), {action});
    auto* noticeButton = notices.findChild<QPushButton*>();
    const QVector<QWidget*> widgets = {&button, &field, noticeButton};
    QVector<QSize> before;
    for (QWidget* widget : widgets) {
        widget->ensurePolished();
        before << widget->sizeHint();
    }
    for (const double scale : Scales) {
        SetScale(scale);
        for (int i = 0; i < widgets.size(); ++i) {
            // Border, padding and text are rounded each by itself, and fields have two pixels from Qt.
            EXPECT_NEAR(widgets.at(i)->sizeHint().height(), before.at(i).height() * scale, 3)
                << i << " at " << scale;
        }
    }
    SetScale(1);
    for (int i = 0; i < widgets.size(); ++i)
        EXPECT_EQ(widgets.at(i)->sizeHint(), before.at(i)) << i;
    qApp->setStyleSheet(QString());
}

TEST_F(ScaleTest, TheSignInTheSearchFieldFollows)
{
    ThemeManager themes;
    themes.Apply(Theme::Dark);
    const auto home = MakeHome();
    home->show();
    const auto* sign = home->findChild<QLineEdit*>(QStringLiteral("home_search"))->findChild<QToolButton*>();
    for (const double scale : {1.0, 2.0, 1.5, 1.0}) {
        SetScale(scale);
        EXPECT_NEAR(sign->width(), 16 * scale, 8) << scale; // with a little room around it
    }
    qApp->setStyleSheet(QString());
}

TEST_F(ScaleTest, TheThickerBorderOfTheFocusDoesNotMoveTheText)
{
    ThemeManager themes;
    themes.Apply(Theme::Light);
    QPushButton button(QStringLiteral("Text"));
    QLineEdit field;
    button.resize(400, 200);
    field.resize(400, 200);
    for (QWidget* widget : {static_cast<QWidget*>(&button), static_cast<QWidget*>(&field)})
        widget->ensurePolished();
    for (const double scale : {1.0, 1.25, 1.5, 1.75, 2.0}) {
        SetScale(scale);
        QStyleOptionButton plain;
        plain.initFrom(&button);
        QStyleOptionButton focused(plain);
        focused.state |= QStyle::State_HasFocus;
        EXPECT_EQ(button.style()->subElementRect(QStyle::SE_PushButtonContents, &focused, &button),
                  button.style()->subElementRect(QStyle::SE_PushButtonContents, &plain, &button))
            << scale;
        QStyleOptionFrame line;
        line.initFrom(&field);
        line.lineWidth = 1;
        QStyleOptionFrame focusedLine(line);
        focusedLine.state |= QStyle::State_HasFocus;
        EXPECT_EQ(field.style()->subElementRect(QStyle::SE_LineEditContents, &focusedLine, &field),
                  field.style()->subElementRect(QStyle::SE_LineEditContents, &line, &field))
            << scale;
    }
    qApp->setStyleSheet(QString());
}
