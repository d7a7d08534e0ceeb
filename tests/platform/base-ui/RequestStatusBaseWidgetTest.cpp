#include "base-ui/RequestStatusBaseWidget.h"
#include "base-ui/TLPushButton.h"

#include "Painted.h"

#include <QtCore/QElapsedTimer>
#include <QtTest/QSignalSpy>
#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

/// The area in a page as a form builds it: the content stands in the area's layout before it is announced.
class RequestStatusBaseWidgetTest : public testing::Test
{
protected:
    RequestStatusBaseWidgetTest()
    {
        auto* page = new QVBoxLayout(&m_page);
        page->setContentsMargins(0, 0, 0, 0);
        m_area = new RequestStatusBaseWidget(&m_page);
        page->addWidget(m_area);
        page->addStretch();
        auto* layout = new QVBoxLayout(m_area);
        m_content = new QLabel(QStringLiteral("Content"), m_area);
        m_content->setFixedHeight(300);
        layout->addWidget(m_content);
        m_area->AddSucceedWidget(m_content);
        m_page.resize(400, 600);
        m_page.show();
    }

    QWidget* Find(const char* name) const { return m_area->findChild<QWidget*>(QLatin1String(name)); }

    QWidget m_page;
    RequestStatusBaseWidget* m_area;
    QLabel* m_content;
};

} // namespace

TEST_F(RequestStatusBaseWidgetTest, ShowsTheContentOnlyWhenItSucceeded)
{
    EXPECT_EQ(m_area->GetStatus(), 0);
    EXPECT_FALSE(m_content->isVisible());
    m_area->SetStatus(2);
    EXPECT_TRUE(m_content->isVisible());
    m_area->SetStatus(1);
    EXPECT_FALSE(m_content->isVisible());
    m_area->SetStatus(2);
    EXPECT_TRUE(m_content->isVisible());
    m_area->SetStatus(0);
    EXPECT_FALSE(m_content->isVisible());
}

TEST_F(RequestStatusBaseWidgetTest, ContentThatComesBeforeThePageIsShownIsLaidOutOnceItIs)
{
    class CountedLayout final : public QVBoxLayout
    {
    public:
        using QVBoxLayout::QVBoxLayout;
        void setGeometry(const QRect& place) override
        {
            ++times;
            QVBoxLayout::setGeometry(place);
        }
        int times = 0;
    };
    m_page.hide();
    auto* content = new QWidget;
    auto* layout = new CountedLayout(content);
    auto* row = new QLabel(QStringLiteral("A row of the content"));
    layout->addWidget(row);
    m_area->AddSucceedWidget(content);
    m_area->SetStatus(2);
    EXPECT_EQ(layout->times, 0) << "nobody sees it yet";
    EXPECT_TRUE(content->isVisibleTo(&m_page));

    m_page.show();
    EXPECT_GE(layout->times, 1);
    EXPECT_GE(row->width(), row->sizeHint().width());
    EXPECT_TRUE(content->rect().contains(row->geometry()));
    layout->addWidget(new QLabel(QStringLiteral("Another")));
    const int before = layout->times;
    QCoreApplication::sendPostedEvents();
    EXPECT_GT(layout->times, before) << "the layout stopped working";
}

TEST_F(RequestStatusBaseWidgetTest, SaysThatItLoadsOnlyAfterAWhile)
{
    m_area->SetStatus(2);
    QElapsedTimer clock;
    clock.start();
    m_area->SetStatus(0);
    EXPECT_FALSE(Find("loading_widget")->isVisible());
    EXPECT_TRUE(QTest::qWaitFor([&] { return Find("loading_widget")->isVisible(); }));
    EXPECT_GE(clock.elapsed(), 190);
}

TEST_F(RequestStatusBaseWidgetTest, AQuickAnswerShowsNoIndicatorAtAll)
{
    m_area->SetStatus(2);
    m_area->SetStatus(0);
    // Starts to load after the area under test, and goes on: when it shows that it loads, the other would.
    RequestStatusBaseWidget later(&m_page);
    later.show();
    m_area->SetStatus(2);
    EXPECT_TRUE(m_content->isVisible());
    const auto* const indicator = later.findChild<QWidget*>(QStringLiteral("loading_widget"));
    ASSERT_TRUE(QTest::qWaitFor([indicator] { return indicator->isVisible(); }));
    EXPECT_FALSE(Find("loading_widget")->isVisible());
}

TEST_F(RequestStatusBaseWidgetTest, TheIndicatorTurns)
{
    ASSERT_TRUE(QTest::qWaitFor([&] { return Find("loading_widget")->isVisible(); }));
    const QImage first = Painted(m_area);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Painted(m_area) != first; }));
}

TEST_F(RequestStatusBaseWidgetTest, AFailureOffersToTryAgain)
{
    QSignalSpy refresh(m_area, &RequestStatusBaseWidget::SigRefresh);
    m_area->SetStatus(1);
    auto* const button = m_area->findChild<TLPushButton*>(QStringLiteral("refresh_button"));
    ASSERT_NE(button, nullptr);
    EXPECT_TRUE(button->isVisible());
    EXPECT_FALSE(button->text().isEmpty());
    EXPECT_FALSE(Find("loading_widget")->isVisible());
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_EQ(refresh.count(), 1);
    QTest::keyClick(button, Qt::Key_Space);
    EXPECT_EQ(refresh.count(), 2);
    m_area->SetStatus(0);
    EXPECT_FALSE(button->isVisible());
}

TEST_F(RequestStatusBaseWidgetTest, KeepsTheHeightOfTheContentWhileItLoadsAgain)
{
    m_area->SetStatus(2);
    ASSERT_TRUE(QTest::qWaitFor([&] { return m_area->height() >= 300; }));
    const int height = m_area->height();
    m_area->SetStatus(0);
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
    EXPECT_EQ(m_area->height(), height);
}

TEST_F(RequestStatusBaseWidgetTest, HasRoomForItsMessageInAnEmptyPage)
{
    m_area->SetStatus(1);
    QCoreApplication::processEvents();
    const QWidget* const button = Find("refresh_button");
    EXPECT_LE(button->mapTo(m_area, button->rect().bottomRight()).y(), m_area->height());
    EXPECT_GE(button->mapTo(m_area, QPoint()).y(), 0);
}

TEST_F(RequestStatusBaseWidgetTest, AnUnknownStatusChangesNothing)
{
    m_area->SetStatus(2);
    m_area->SetStatus(3);
    m_area->SetStatus(-1);
    EXPECT_EQ(m_area->GetStatus(), 2);
    EXPECT_TRUE(m_content->isVisible());
}

TEST_F(RequestStatusBaseWidgetTest, TakesOverAWidgetFromElsewhere)
{
    auto* other = new QLabel(QStringLiteral("Other"));
    m_area->AddSucceedWidget(other);
    EXPECT_EQ(other->parentWidget(), m_area);
    EXPECT_FALSE(other->isVisible());
    m_area->SetStatus(2);
    EXPECT_TRUE(other->isVisible());
    delete other;
    m_area->SetStatus(1);
    m_area->AddSucceedWidget(nullptr);
    EXPECT_FALSE(m_content->isVisible());
}
