#include "FakeGeneralData.h"
#include "FakeRouteExecutor.h"
#include "PreviewBrowser.h"
#include "PreviewGateway.h"
#include "WaitUntil.h"

#include "settings/SettingsDialog.h"

#include "look/ThemeManager.h"

#include "base-ui/KeyboardAccess.h"
#include "base/DpiTool.h"
#include "base/Provided.h"
#include "core/TLGlobalData.h"
#include "frame-core/IBusinessModule.h"
#include "frame-core/ISysSettingFactory.h"
#include "frame-core/SettingItemBaseWidget.h"
#include "frame-data/TLFunctionData.h"
#include "frame-data/TLPluginBaseManager.h"
#include "frame-data/TLUrlUtils.h"

#include <QtCore/QJsonArray>
#include <QtCore/QPluginLoader>
#include <QtCore/QTimer>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStackedWidget>

#include <gtest/gtest.h>

#include <memory>

namespace {

constexpr int Slow = 800; // [ms]

/// The dialog with the page of the module that is delivered with the client, and a gateway that takes its
/// time.
class ModulePageTest : public ::testing::Test
{
protected:
    ModulePageTest()
        : m_gateway(QStringLiteral("full"))
        , m_gatewayProvided(&m_gateway)
        , m_generalProvided(&m_general)
        , m_routerProvided(&m_router)
        , m_browserProvided(&m_browser)
        , m_loader(QStringLiteral(TL_MODULE_FILE))
    {
        TLGlobalData::Instance()->SetUser(QStringLiteral("demo"), QStringLiteral("merchant"));
        m_functions.SetFunctions({{8, TLFunctionInfo(true, true)}});
        m_router.SetRouteObject(QStringLiteral("tl://plugins/object"), &m_apps);
        m_router.SetRouteObject(QStringLiteral("tl://funcdynamic/object"), &m_functions);
        m_services.loadPage = [] { return QStringLiteral("10,60"); };
    }
    ~ModulePageTest() override
    {
        m_dialog.reset();
        if (m_module != nullptr) {
            m_module->UninitModule();
        }
        m_loader.unload();
        TLGlobalData::Instance()->ClearUser();
        DpiTool::SetScale(1.0);
    }

    void SetUp() override
    {
        m_module = qobject_cast<IBusinessModule*>(m_loader.instance());
        ASSERT_NE(m_module, nullptr) << qPrintable(m_loader.errorString());
        m_module->InitModule();
        m_dialog = std::make_unique<SettingsDialog>(
            m_services, QVector<ISysSettingFactory*>{m_module->GetSysSettingFactory()});
        m_dialog->show();
        m_dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
        m_dialog->move(200, 150); // not where the mouse is
        ASSERT_TRUE(WaitUntil([this] { return Rows().size() == 8; }));
    }

    SettingItemBaseWidget* Page() const
    {
        return m_dialog->findChild<SettingItemBaseWidget*>(QStringLiteral("AutoRunSettingWidget"));
    }

    /// Those in sight, from the top down.
    QVector<QWidget*> Rows() const
    {
        QVector<QWidget*> rows;
        if (Page() == nullptr) {
            return rows;
        }
        const QVector<QWidget*> order = KeyboardAccess::GetReadingOrder(Page());
        for (QWidget* const part : order) {
            if (part != Page() && qobject_cast<SettingItemBaseWidget*>(part) != nullptr &&
                part->isVisible()) {
                rows.append(part);
            }
        }
        return rows;
    }

    template <class Widget = QWidget>
    Widget* In(int row, const char* name) const
    {
        return Rows().at(row)->findChild<Widget*>(QLatin1String(name));
    }

    void Tick(int row)
    {
        QWidget* const box = In(row, "checkBox");
        QTest::mouseClick(box, Qt::LeftButton, Qt::NoModifier, box->rect().center());
    }

    bool IsChecked(const char* list, int index) const
    {
        return m_gateway.GetConfiguration()
            .value(QLatin1String(list))
            .toArray()
            .at(index)
            .toObject()
            .value(QLatin1String("checked"))
            .toBool();
    }

    PreviewGateway m_gateway;
    FakeGeneralData m_general;
    FakeRouteExecutor m_router;
    PreviewBrowser m_browser;
    Provided<IHttpManager> m_gatewayProvided;
    Provided<IGeneralData> m_generalProvided;
    Provided<IRouteExecutor> m_routerProvided;
    Provided<IBrowserMain> m_browserProvided;
    TLPluginBaseManager m_apps;
    TLFunctionData m_functions;
    QPluginLoader m_loader;
    IBusinessModule* m_module = nullptr;
    SettingsServices m_services;
    std::unique_ptr<SettingsDialog> m_dialog;
};

TEST_F(ModulePageTest, AQuickSecondClickIsSavedAfterTheFirst)
{
    m_gateway.writeDelay = Slow;
    Tick(2);
    Tick(4);
    Tick(7);
    ASSERT_TRUE(WaitUntil([this] { return IsChecked("pluginItems", 1); }));
    EXPECT_TRUE(IsChecked("systemItems", 1));
    EXPECT_TRUE(IsChecked("customItems", 1));
    EXPECT_EQ(m_gateway.writes, 3);
}

TEST_F(ModulePageTest, AChangeOfTheScaleLosesNeitherARowThatWentNorTheClickThatWaits)
{
    m_gateway.writeDelay = Slow;
    In<QPushButton>(5, "delete_button")->window()->activateWindow();
    QTest::mouseClick(In(5, "delete_button"), Qt::LeftButton);
    ASSERT_TRUE(WaitUntil([this] { return Rows().size() == 7; }));
    Tick(2);
    DpiTool::SetScale(1.5);
    ASSERT_TRUE(WaitUntil([this] { return IsChecked("systemItems", 1); }));
    EXPECT_EQ(m_gateway.GetConfiguration().value(QLatin1String("customItems")).toArray().size(), 2);
    EXPECT_TRUE(WaitUntil([this] { return Rows().size() == 7; })) << Rows().size();
    EXPECT_EQ(m_gateway.writes, 2);
}

TEST_F(ModulePageTest, TheKeyboardAloneAddsAnAddressAndTicksIt)
{
    ThemeManager themes;
    themes.Apply(Theme::Light);
    auto* const add = Page()->findChild<QLabel*>(QStringLiteral("add_label"));
    In(5, "checkBox")->setFocus(Qt::TabFocusReason);
    for (int i = 0; i < 6 && !add->hasFocus(); ++i) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    ASSERT_TRUE(add->hasFocus());
    TLUrlUtils::SetVXDomains({QStringLiteral("shop.example")});
    QTimer::singleShot(0, m_dialog.get(), [] {
        QWidget* const form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        auto* const field = form->findChild<QLineEdit*>(QStringLiteral("content_edit"));
        EXPECT_FALSE(QAccessible::queryAccessibleInterface(field)->text(QAccessible::Name).isEmpty());
        QTest::keyClicks(field, QStringLiteral("https://new.shop.example/"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    QTest::keyClick(add, Qt::Key_Return);
    ASSERT_TRUE(WaitUntil([this] { return m_gateway.writes == 1 && Rows().size() == 9; }));
    ASSERT_TRUE(WaitUntil([this] {
        return m_gateway.GetConfiguration().value(QLatin1String("customItems")).toArray().size() == 4;
    }));
    // The row is reached and ticked in the same way.
    m_dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    In(6, "checkBox")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(WaitUntil([this] { return IsChecked("customItems", 3); }));
    TLUrlUtils::SetVXDomains({});
    qApp->setStyleSheet(QString());
}

TEST_F(ModulePageTest, AfterAnEditByKeyboardTheFocusIsOnTheSameButton)
{
    TLUrlUtils::SetVXDomains({QStringLiteral("shop.example")});
    In(4, "checkBox")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(In(4, "edit_button")->hasFocus());
    QTimer::singleShot(0, m_dialog.get(), [] {
        QWidget* const form = QApplication::activeModalWidget();
        ASSERT_NE(form, nullptr);
        auto* const field = form->findChild<QLineEdit*>(QStringLiteral("content_edit"));
        field->setText(QStringLiteral("https://new.shop.example/"));
        QTest::keyClick(field, Qt::Key_Return);
    });
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    m_dialog->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog.get()));
    EXPECT_TRUE(WaitUntil([this] {
        return In(4, "edit_button")->hasFocus() && In(4, "edit_button")->isVisible();
    })) << qPrintable(QApplication::focusWidget()->objectName());
    EXPECT_TRUE(In(4, "delete_button")->isVisible());
    EXPECT_TRUE(WaitUntil([this] { return m_gateway.writes == 1; }));
    TLUrlUtils::SetVXDomains({});
}

TEST_F(ModulePageTest, TheKeyboardAlonePutsTheHomePageFirst)
{
    ASSERT_TRUE(In(3, "active_widget")->isVisible()) << "another entry is first";
    In(1, "checkBox")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    ASSERT_TRUE(In(0, "active_button")->hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_TRUE(In(0, "active_widget")->isVisible());
    EXPECT_FALSE(In(3, "active_widget")->isVisible());
    EXPECT_TRUE(WaitUntil([this] { return m_gateway.writes == 1; }));
    // As first it has nothing left to press, and Tab passes it.
    EXPECT_TRUE(Page()->isAncestorOf(QApplication::focusWidget()));
    In(1, "checkBox")->setFocus(Qt::TabFocusReason);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
    EXPECT_FALSE(Rows().at(0)->isAncestorOf(QApplication::focusWidget()));
}

TEST_F(ModulePageTest, TabComesIntoTheRowOfTheHomePageFromAbove)
{
    QWidget* const list = m_dialog->findChild<QWidget*>(QStringLiteral("settings_list"));
    ASSERT_NE(list, nullptr);
    list->setFocus(Qt::TabFocusReason);
    QTest::keyClick(list, Qt::Key_Tab);
    EXPECT_TRUE(In(0, "active_button")->hasFocus());
}

TEST_F(ModulePageTest, WhatAScreenReaderTogglesIsSavedInItsTurn)
{
    m_gateway.writeDelay = Slow;
    for (const int row : {2, 4}) {
        QAccessible::queryAccessibleInterface(In(row, "checkBox"))
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
    }
    ASSERT_TRUE(WaitUntil([this] { return IsChecked("customItems", 1); }));
    EXPECT_TRUE(IsChecked("systemItems", 1));
    EXPECT_EQ(m_gateway.writes, 2);
}

TEST_F(ModulePageTest, CheckBoxesAreNamedByTheirEntries)
{
    const auto nameOf = [this](int row) {
        return QAccessible::queryAccessibleInterface(In(row, "checkBox"))->text(QAccessible::Name);
    };
    ASSERT_TRUE(WaitUntil([&nameOf] { return !nameOf(7).isEmpty(); }));
    EXPECT_EQ(nameOf(1), QStringLiteral("Order centre"));
    EXPECT_EQ(nameOf(3), QStringLiteral("https://www.shop.example/orders/today"));
    EXPECT_EQ(nameOf(7), QStringLiteral("客服工作台"));
}

TEST_F(ModulePageTest, ThePageOfTheLastKnownListTakesNoChange)
{
    m_dialog->close();
    m_gateway.stale = true;
    m_dialog->show();
    ASSERT_TRUE(WaitUntil([this] { return Rows().size() == 8; }));
    EXPECT_FALSE(Page()->isEnabled());
    EXPECT_FALSE(In(2, "checkBox")->isEnabled());
    EXPECT_TRUE(m_dialog->findChild<QWidget*>(QStringLiteral("settings_notice"))->isVisible());
    for (const char* const name : {"add_label", "add_plugin_label"}) {
        QTest::mousePress(Page()->findChild<QWidget*>(QLatin1String(name)), Qt::LeftButton);
    }
    QTest::mousePress(In(2, "text_label"), Qt::LeftButton);
    EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    EXPECT_FALSE(In(2, "checkBox")->property("checked").toBool());

    m_gateway.stale = false;
    m_dialog->LoadAgain();
    ASSERT_TRUE(WaitUntil([this] { return Page() != nullptr && Page()->isEnabled() && Rows().size() == 8; }));
    Tick(2);
    EXPECT_TRUE(WaitUntil([this] { return IsChecked("systemItems", 1); }));
    EXPECT_EQ(m_gateway.writes, 1);
}

TEST_F(ModulePageTest, ButtonsAreNamedByWhatTheyDoToWhichEntry)
{
    const auto nameOf = [this](int row, const char* button) {
        return QAccessible::queryAccessibleInterface(In(row, button))->text(QAccessible::Name);
    };
    ASSERT_TRUE(WaitUntil([&nameOf] { return nameOf(6, "active_button").contains(u':'); }));
    EXPECT_EQ(nameOf(3, "edit_button"), QStringLiteral("Edit https://www.shop.example/orders/today"));
    EXPECT_EQ(nameOf(7, "delete_button"), QStringLiteral("Delete 客服工作台"));
    EXPECT_EQ(nameOf(1, "active_button"), QStringLiteral("Open first: Order centre"));
    // Not as much of it as fits.
    EXPECT_TRUE(nameOf(4, "edit_button").endsWith(QStringLiteral("&currency=cny")))
        << qPrintable(nameOf(4, "edit_button"));
    EXPECT_EQ(In(3, "edit_button")->toolTip(), QStringLiteral("Edit"));
    EXPECT_EQ(In(3, "delete_button")->toolTip(), QStringLiteral("Delete"));
}

} // namespace
