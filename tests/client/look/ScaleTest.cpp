#include "ScaledWindowTest.h"

#include "AddressBar.h"
#include "FindBar.h"
#include "MessagePage.h"
#include "PlainPageView.h"
#include "TabButton.h"
#include "TabStrip.h"
#include "look/IconLabel.h"
#include "notices/NoticeBar.h"
#include "pages/PageDialog.h"

#include "base/DpiTool.h"

#include <QtGui/QFontInfo>
#include <QtGui/QImage>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QListView>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QToolButton>
#include <QtWidgets/QTreeView>

namespace {

/// The part of the picture that has this colour.
QRect GetBounds(const QImage& picture, const QColor& color)
{
    QRect bounds;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            if (picture.pixelColor(x, y) == color) {
                bounds |= QRect(x, y, 1, 1);
            }
        }
    }
    return bounds;
}

} // namespace

class ScaleTest : public ScaledWindowTest
{
protected:
    /// The sizes of the bars and their buttons.
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
};

TEST_F(ScaleTest, BarsAreTwiceAsHighAtTwiceTheScaleAndShrinkAgain)
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

TEST_F(ScaleTest, TitleOfHomeIsNotElidedAtAnyScale)
{
    const TabButton* home = m_window->findChild<TabStrip*>()->GetButton(0);
    for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
        SetScale(scale);
        EXPECT_GE(home->width(), home->sizeHint().width()) << scale;
        // Only titles that are cut off have a tool tip.
        EXPECT_EQ(home->toolTip(), QString()) << scale;
    }
}

TEST_F(ScaleTest, SizesAreExactAtEachScale)
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
    const auto* tree = dialog.findChild<QTreeView*>();
    const QModelIndex tab = tree->model()->index(0, 0, tree->model()->index(0, 0));
    for (const double scale : {1.0, 1.5, 2.0, 1.25}) {
        SetScale(scale);
        const QRect row = tree->visualRect(tab);
        EXPECT_EQ(row.height(),
                  2 * QFontMetrics(tree->font()).height() + qRound(2 * scale) + 2 * qRound(6 * scale));
        EXPECT_EQ(row.left(), 2 * qRound(20 * scale));
        QRect icon;
        ASSERT_TRUE(QTest::qWaitFor([&] { // until the picture has arrived
            icon = GetBounds(tree->viewport()->grab(row).toImage(), Qt::red);
            return icon.isValid();
        }));
        EXPECT_EQ(icon.size(), QSize(qRound(16 * scale), qRound(16 * scale))) << scale;
        EXPECT_EQ(icon.left(), qRound(8 * scale) + qRound(16 * scale) + qRound(10 * scale)) << scale;
    }
}

TEST_F(ScaleTest, ClickTicksASetWhereTheBoxIsDrawn)
{
    EarlierTabsDialog dialog({MakeEarlierSet()});
    dialog.open();
    auto* tree = dialog.findChild<QTreeView*>();
    auto* open = dialog.findChild<QPushButton*>(QStringLiteral("earlier_tabs_open"));
    const QModelIndex set = tree->model()->index(0, 0);
    for (const double scale : {1.0, 1.5, 2.0, 1.25}) {
        SetScale(scale);
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

TEST_F(ScaleTest, GreetingIsNotCutOffInANarrowWindow)
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

TEST_F(ScaleTest, PlainPageIsZoomedOnTopOfTheScale)
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
