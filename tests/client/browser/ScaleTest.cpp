#include "MainWindowTest.h"

#include "browser/AddressBar.h"
#include "browser/TabButton.h"
#include "browser/TabStrip.h"

#include "base/DpiTool.h"

#include <QtGui/QFontInfo>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QToolButton>

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
