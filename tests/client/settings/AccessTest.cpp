#include "SettingsDialogTest.h"

#include "WaitUntil.h"

#include "look/ThemeManager.h"

#include <QtCore/QSet>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>

namespace {

using AccessTest = SettingsDialogTest;

QString NameOf(QWidget* widget)
{
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(widget);
    return seen != nullptr ? seen->text(QAccessible::Name) : QString();
}

TEST_F(AccessTest, ACheckBoxIsNamedByTheEntryOfItsRow)
{
    Open();
    ASSERT_TRUE(WaitUntil([this] { return !NameOf(Page()->GetRow(2)->box).isEmpty(); }));
    EXPECT_EQ(NameOf(Page()->GetRow(0)->box), QStringLiteral("alpha"));
    EXPECT_EQ(NameOf(Page()->GetRow(2)->box), QStringLiteral("gamma"));
    EXPECT_EQ(NameOf(Page()->GetRow(2)->remove), QStringLiteral("Delete gamma"));
    QAccessibleInterface* const box = QAccessible::queryAccessibleInterface(Page()->GetRow(0)->box);
    EXPECT_EQ(box->role(), QAccessible::CheckBox);
}

TEST_F(AccessTest, WhatAScreenReaderTogglesTakesItsTurnAsAClickDoes)
{
    Open();
    const auto toggle = [this](int row) {
        QAccessible::queryAccessibleInterface(Page()->GetRow(row)->box)
            ->actionInterface()
            ->doAction(QAccessibleActionInterface::toggleAction());
    };
    toggle(0);
    toggle(1);
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("alpha\t1\nbeta\t1\ngamma\t0"));
    EXPECT_EQ(Page()->skipped, 0);
    EXPECT_TRUE(QAccessible::queryAccessibleInterface(Page()->GetRow(0)->box)->state().checked);
    EXPECT_FALSE(QAccessible::queryAccessibleInterface(Page()->GetRow(2)->box)->state().checked);
}

TEST_F(AccessTest, WhatAScreenReaderPressesMayGoInsideItsOwnSignal)
{
    Open();
    QAccessible::queryAccessibleInterface(Page()->GetRow(0)->remove)
        ->actionInterface()
        ->doAction(QAccessibleActionInterface::pressAction());
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("beta\t0\ngamma\t0"));
}

TEST_F(AccessTest, ANameFollowsTheEntryAndTheHighlightIsNoPartOfIt)
{
    Open();
    FakeSettingsRow* const row = Page()->GetRow(0);
    row->label->setText(QStringLiteral("<b>&omega;</b>"));
    row->SetKeyword(QStringLiteral("b"));
    EXPECT_TRUE(WaitUntil([row] { return NameOf(row->box) == QStringLiteral("<b>&omega;</b>"); }))
        << qPrintable(NameOf(row->box));
}

TEST_F(AccessTest, ANameThatThePageGivesStays)
{
    Open();
    FakeSettingsRow* const row = Page()->GetRow(1);
    row->box->setAccessibleName(QStringLiteral("My own"));
    row->label->setText(QStringLiteral("other"));
    // A label may show only as much of the entry as fits.
    ASSERT_TRUE(WaitUntil([row] { return NameOf(row->remove) == QStringLiteral("Delete My own"); }));
    EXPECT_EQ(NameOf(row->box), QStringLiteral("My own"));
}

TEST_F(AccessTest, TabReachesEverythingInReadingOrderAndComesRound)
{
    Open();
    m_dialog->findChild<QWidget*>(QStringLiteral("settings_search"))->setFocus(Qt::TabFocusReason);
    QList<QWidget*> reached;
    for (int i = 0; i < 40; ++i) {
        QWidget* const focus = QApplication::focusWidget();
        ASSERT_NE(focus, nullptr);
        EXPECT_TRUE(focus->isVisible());
        if (!reached.isEmpty() && focus == reached.first()) {
            break;
        }
        reached.append(focus);
        Press(Qt::Key_Tab);
    }
    QList<QWidget*> wanted{m_dialog->findChild<QWidget*>(QStringLiteral("settings_search")), List()};
    for (int i = 0; i < 3; ++i) {
        wanted << Page()->GetRow(i)->box << Page()->GetRow(i)->remove;
    }
    wanted << Page()->addLabel;
    EXPECT_EQ(reached, wanted);
}

TEST_F(AccessTest, ARowIsDeletedAndOneAddedByTheKeyboardAlone)
{
    Open();
    Page()->GetRow(0)->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Space);
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    ASSERT_TRUE(WaitUntil([this] { return Page()->GetRow(0)->box->hasFocus(); })) << "the row in its place";
    Page()->addLabel->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Return);
    ASSERT_EQ(m_gateway.GetWaiting(), 1);
    m_gateway.Answer();
    EXPECT_EQ(m_gateway.stored, QStringLiteral("beta\t0\ngamma\t0\nadded 1\t0"));
    EXPECT_TRUE(m_dialog->isVisible()) << "Enter is no default button here";
}

TEST_F(AccessTest, EverythingThatTakesTheFocusHasANameOnEveryPage)
{
    Open();
    const QStringList titles = Titles();
    for (const QString& title : titles) {
        Choose(title);
        QCoreApplication::processEvents();
        const QList<QWidget*> parts = m_dialog->findChildren<QWidget*>();
        for (QWidget* const part : parts) {
            if (!part->isVisible() || (part->focusPolicy() & Qt::TabFocus) == 0) {
                continue;
            }
            EXPECT_FALSE(NameOf(part).isEmpty())
                << qPrintable(title) << part->metaObject()->className() << qPrintable(part->objectName());
        }
    }
}

TEST_F(AccessTest, TheThemeMakesButtonsOfTheModulesLabels)
{
    ThemeManager themes;
    for (const Theme theme : {Theme::Light, Theme::Dark}) {
        QWidget page;
        page.setObjectName(QStringLiteral("AutoRunSettingWidget"));
        auto* const add = new QLabel(QStringLiteral("+custom URL"), &page);
        add->setObjectName(QStringLiteral("add_label"));
        auto* const addApp = new QLabel(QStringLiteral("+Add App"), &page);
        addApp->setObjectName(QStringLiteral("add_plugin_label"));
        themes.Apply(theme);
        page.ensurePolished();
        add->ensurePolished();
        addApp->ensurePolished();
        EXPECT_EQ(add->focusPolicy(), Qt::StrongFocus);
        EXPECT_EQ(addApp->focusPolicy(), Qt::StrongFocus);
    }
    qApp->setStyleSheet(QString());
}

} // namespace
