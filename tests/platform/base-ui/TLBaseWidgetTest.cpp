#include "base-ui/TLBaseWidget.h"

#include "Painted.h"

#include <gtest/gtest.h>

namespace {

/// As modules derive their pages from it; a class of its own is what hides a plain widget from a theme.
class Page final : public TLBaseWidget
{
    Q_OBJECT

public:
    using TLBaseWidget::TLBaseWidget;
};

} // namespace

TEST(TLBaseWidgetTest, TheThemePaintsTheBackgroundOfADerivedClass)
{
    Page page;
    page.setObjectName(QStringLiteral("page"));
    page.setStyleSheet(QStringLiteral("#page { background: #123456; }"));
    page.resize(20, 20);
    EXPECT_EQ(Painted(&page).pixelColor(10, 10), QColor(0x12, 0x34, 0x56));
}

TEST(TLBaseWidgetTest, IsAChildWidgetWhateverTheHintsSay)
{
    QWidget parent;
    const Page page(&parent, Qt::WindowCloseButtonHint);
    EXPECT_FALSE(page.isWindow());
    EXPECT_EQ(page.parentWidget(), &parent);
}

#include "TLBaseWidgetTest.moc"
