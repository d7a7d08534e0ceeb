#include "frame-core/SettingItemBaseWidget.h"

#include "VTablePlaces.h"
#include "VTableSlots.h"

#include <QtCore/QMetaMethod>
#include <QtGui/QTextDocumentFragment>
#include <QtWidgets/QLabel>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

class Page final : public SettingItemBaseWidget
{
public:
    using SettingItemBaseWidget::focusNextPrevChild;
    using SettingItemBaseWidget::SetLabelHighlighted;
    using SettingItemBaseWidget::SettingItemBaseWidget;

    void SetKeyword(const QString& keyword) override { log.push_back("SetKeyword " + keyword.toStdString()); }
    void SaveData() override { log.push_back("SaveData"); }

    std::vector<std::string> log;
};

TEST(SettingItemBaseWidgetTest, TheOperationsFollowTheLastOneOfQWidget)
{
    const int last = VTablePlaces::PlaceOf(&Page::focusNextPrevChild);
    ASSERT_GT(last, 0);
    EXPECT_EQ(VTablePlaces::PlaceOf(&SettingItemBaseWidget::SetKeyword), last + 1);
    EXPECT_EQ(VTablePlaces::PlaceOf(&SettingItemBaseWidget::SaveData), last + 2);
}

TEST(SettingItemBaseWidgetTest, TheOperationsAreReachedByTheirPlace)
{
    Page page;
    // Behind the destructor, which counts once here, a slot is one less than its place.
    constexpr int destructorSlot = 3;
    const VTableSlots<SettingItemBaseWidget> table(&page, destructorSlot);
    const int first = VTablePlaces::PlaceOf(&Page::focusNextPrevChild) + 1;
    const QString keyword = QStringLiteral("url");
    table.Call<void, const QString&>(first - 1, keyword);
    table.Call(first);
    EXPECT_EQ(page.log, std::vector<std::string>({"SetKeyword url", "SaveData"}));
}

TEST(SettingItemBaseWidgetTest, TheSignalsCarryNothing)
{
    const QMetaObject& meta = SettingItemBaseWidget::staticMetaObject;
    const int first = meta.methodOffset();
    ASSERT_EQ(meta.methodCount(), first + 2);
    EXPECT_EQ(meta.method(first).methodSignature(), "SigSaveSucceed()");
    EXPECT_EQ(meta.method(first + 1).methodSignature(), "SigSaveFailed()");
    EXPECT_EQ(meta.method(first).methodType(), QMetaMethod::Signal);
    EXPECT_EQ(meta.method(first + 1).methodType(), QMetaMethod::Signal);
}

TEST(SettingItemBaseWidgetTest, IsAWidgetThatTheThemeMayDraw)
{
    QWidget dialog;
    auto* const page = new SettingItemBaseWidget(&dialog, Qt::WindowCloseButtonHint);
    EXPECT_EQ(page->parentWidget(), &dialog);
    EXPECT_EQ(page->windowFlags() & Qt::WindowCloseButtonHint, Qt::WindowCloseButtonHint);
    EXPECT_FALSE(page->isWindow());
    EXPECT_NE(qobject_cast<TLBaseWidget*>(page), nullptr);
}

TEST(SettingItemBaseWidgetTest, APageThatOverridesNothingKeepsStill)
{
    SettingItemBaseWidget page;
    QLabel label(QStringLiteral("the url"), &page);
    int signalCount = 0;
    QObject::connect(&page, &SettingItemBaseWidget::SigSaveSucceed, &page, [&] { ++signalCount; });
    QObject::connect(&page, &SettingItemBaseWidget::SigSaveFailed, &page, [&] { ++signalCount; });
    page.SetKeyword(QStringLiteral("url"));
    page.SaveData();
    EXPECT_EQ(label.text(), QStringLiteral("the url"));
    EXPECT_EQ(signalCount, 0);
}

TEST(SettingItemBaseWidgetTest, HighlightsTheWordInALabelAndTakesItAwayAgain)
{
    Page page;
    QLabel label(QStringLiteral("Set the URL <b>& more"), &page);
    const QString text = label.text();
    page.SetLabelHighlighted(&label, QStringLiteral("url"));
    EXPECT_EQ(label.textFormat(), Qt::RichText);
    EXPECT_EQ(QTextDocumentFragment::fromHtml(label.text()).toPlainText(), text);
    EXPECT_TRUE(label.text().contains(QStringLiteral(">URL</span>")));
    page.SetLabelHighlighted(&label, QString());
    EXPECT_EQ(label.text(), text);
    EXPECT_NE(label.textFormat(), Qt::RichText);
    page.SetLabelHighlighted(nullptr, QStringLiteral("url"));
}

} // namespace
