#include "base-ui/KeyboardAccess.h"

#include <QtCore/QPointer>
#include <QtGui/QAccessible>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include <gtest/gtest.h>

namespace {

/// A row whose button shows only under the mouse.
class Row final : public QWidget
{
public:
    explicit Row(QWidget* parent) : QWidget(parent), box(new QCheckBox(this)), button(new QPushButton(this))
    {
        auto* layout = new QHBoxLayout(this);
        layout->addWidget(box);
        layout->addWidget(button);
        button->hide();
    }

    QCheckBox* box;
    QPushButton* button;

protected:
    void enterEvent(QEvent*) override { button->show(); }
    void leaveEvent(QEvent*) override { button->hide(); }
};

/// A row with two buttons that show only under the mouse, the first of them in a panel.
class PanelRow final : public QWidget
{
public:
    explicit PanelRow(QWidget* parent)
        : QWidget(parent)
        , box(new QCheckBox(this))
        , panel(new QWidget(this))
        , edit(new QPushButton(panel))
        , first(new QPushButton(this))
    {
        auto* inner = new QHBoxLayout(panel);
        inner->addWidget(edit);
        auto* layout = new QHBoxLayout(this);
        layout->addWidget(box);
        layout->addWidget(panel);
        layout->addWidget(first);
        panel->hide();
        first->hide();
    }

    QCheckBox* box;
    QWidget* panel;
    QPushButton* edit;
    QPushButton* first;
    bool offersFirst = true;

protected:
    void enterEvent(QEvent*) override
    {
        panel->show();
        first->setVisible(offersFirst);
    }
    void leaveEvent(QEvent*) override
    {
        panel->hide();
        first->hide();
    }
};

/// Counts the presses of a label as a form does that takes it for a button.
class PressCounter final : public QObject
{
public:
    int presses = 0;

protected:
    bool eventFilter(QObject*, QEvent* event) override
    {
        presses += event->type() == QEvent::MouseButtonPress ? 1 : 0;
        return false;
    }
};

class KeyboardAccessTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        add = new QLabel(QStringLiteral("+custom URL"), &form); // made first, stands last
        add->setFocusPolicy(Qt::StrongFocus);
        add->installEventFilter(&counter);
        column = new QVBoxLayout(&form);
        for (int i = 0; i < 3; ++i) {
            rows.append(new Row(&form));
            column->addWidget(rows.last());
        }
        column->addWidget(add);
        access = new KeyboardAccess(&form, [](const QWidget* widget) {
            return dynamic_cast<const Row*>(widget) != nullptr ||
                   dynamic_cast<const PanelRow*>(widget) != nullptr;
        });
        form.setGeometry(200, 200, 300, 300); // not where the mouse is
        form.show();
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    }

    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    PressCounter counter;
    QWidget form;
    QVBoxLayout* column = nullptr;
    QVector<Row*> rows;
    QLabel* add = nullptr;
    KeyboardAccess* access = nullptr;
};

TEST_F(KeyboardAccessTest, TabGoesThroughTheRowsInReadingOrderAndThroughWhatTheyShowUnderTheMouse)
{
    rows[0]->box->setFocus(Qt::TabFocusReason);
    EXPECT_FALSE(rows[0]->button->isVisible());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(rows[0]->button->hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(rows[1]->box->hasFocus());
    EXPECT_FALSE(rows[0]->button->isVisible());
    EXPECT_TRUE(rows[1]->button->isVisible());
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    EXPECT_TRUE(rows[2]->button->hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(add->hasFocus());
}

TEST_F(KeyboardAccessTest, BacktabComesIntoTheHiddenButtonsOfTheRowBefore)
{
    rows[1]->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab, Qt::ShiftModifier);
    EXPECT_TRUE(rows[0]->button->hasFocus());
    Press(Qt::Key_Backtab);
    EXPECT_TRUE(rows[0]->box->hasFocus());
    EXPECT_TRUE(rows[0]->button->isVisible());
}

TEST_F(KeyboardAccessTest, BacktabFromTheLabelComesIntoTheLastRow)
{
    add->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Backtab);
    EXPECT_TRUE(rows[2]->button->hasFocus());
}

TEST_F(KeyboardAccessTest, TabComesIntoARowWhoseHiddenButtonAloneCanHaveTheFocus)
{
    rows[1]->box->setEnabled(false);
    rows[0]->box->setFocus();
    Press(Qt::Key_Tab);
    ASSERT_TRUE(rows[0]->button->hasFocus());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(rows[1]->button->hasFocus());
    EXPECT_FALSE(rows[0]->button->isVisible());
    Press(Qt::Key_Tab);
    EXPECT_TRUE(rows[2]->box->hasFocus());
    EXPECT_FALSE(rows[1]->button->isVisible());
    Press(Qt::Key_Backtab);
    EXPECT_TRUE(rows[1]->button->hasFocus());
}

TEST_F(KeyboardAccessTest, TabPassesRowsThatHaveNothingForTheFocus)
{
    rows[1]->box->setEnabled(false);
    rows[1]->button->setEnabled(false);
    rows[2]->box->setEnabled(false);
    rows[0]->box->setFocus();
    Press(Qt::Key_Tab);
    Press(Qt::Key_Tab);
    EXPECT_TRUE(rows[2]->button->hasFocus());
    EXPECT_FALSE(rows[1]->button->isVisible());
    Press(Qt::Key_Backtab);
    EXPECT_TRUE(rows[0]->button->hasFocus());
    EXPECT_FALSE(rows[1]->button->isVisible());
}

TEST_F(KeyboardAccessTest, TheMouseLeavingARowDoesNotHideTheButtonThatHasTheFocus)
{
    rows[0]->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab);
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(rows[0], &leave);
    EXPECT_TRUE(rows[0]->button->isVisible());
    EXPECT_TRUE(rows[0]->button->hasFocus());
}

TEST_F(KeyboardAccessTest, AFocusGivenByTheMouseRevealsNothing)
{
    QTest::mouseClick(rows[1]->box, Qt::LeftButton);
    EXPECT_TRUE(rows[1]->box->hasFocus());
    EXPECT_FALSE(rows[1]->button->isVisible());
    Press(Qt::Key_Shift);
    EXPECT_TRUE(rows[1]->button->isVisible());
}

TEST_F(KeyboardAccessTest, EnterAndSpacePressTheMouseOnALabelThatTakesTheFocus)
{
    add->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Return);
    EXPECT_EQ(counter.presses, 1);
    Press(Qt::Key_Enter);
    Press(Qt::Key_Space);
    EXPECT_EQ(counter.presses, 3);
    Press(Qt::Key_A);
    EXPECT_EQ(counter.presses, 3);
}

TEST_F(KeyboardAccessTest, AHeldKeyPressesOnce)
{
    add->setFocus(Qt::TabFocusReason);
    QKeyEvent first(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QKeyEvent repeated(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(add, &first);
    QCoreApplication::sendEvent(add, &repeated);
    EXPECT_EQ(counter.presses, 1);
}

TEST_F(KeyboardAccessTest, ADisabledLabelAnswersToNoKey)
{
    add->setFocus(Qt::TabFocusReason);
    add->setEnabled(false);
    QKeyEvent space(QEvent::KeyPress, Qt::Key_Space, Qt::NoModifier);
    QCoreApplication::sendEvent(add, &space);
    EXPECT_EQ(counter.presses, 0);
}

TEST_F(KeyboardAccessTest, ALabelWithoutTheFocusPolicyIsNoButton)
{
    QLabel plain(QStringLiteral("Text"));
    EXPECT_FALSE(KeyboardAccess::IsPressable(&plain));
    plain.setTextInteractionFlags(Qt::TextSelectableByKeyboard);
    EXPECT_FALSE(KeyboardAccess::IsPressable(&plain));
    EXPECT_TRUE(KeyboardAccess::IsPressable(add));
}

TEST_F(KeyboardAccessTest, ScreenReadersSeeAButtonAndCanPressIt)
{
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(add);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->role(), QAccessible::Button);
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("+custom URL"));
    ASSERT_NE(seen->actionInterface(), nullptr);
    seen->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    EXPECT_EQ(counter.presses, 1);
}

TEST_F(KeyboardAccessTest, AHighlightIsNoPartOfTheNameThatScreenReadersGive)
{
    add->setText(QStringLiteral("<div>+custom <b>URL</b> &amp; more</div>"));
    QAccessibleInterface* const seen = QAccessible::queryAccessibleInterface(add);
    ASSERT_NE(seen, nullptr);
    EXPECT_EQ(seen->text(QAccessible::Name), QStringLiteral("+custom URL & more"));
}

TEST_F(KeyboardAccessTest, WhenARowGoesItsPlaceKeepsTheFocus)
{
    rows[1]->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab);
    ASSERT_TRUE(rows[1]->button->hasFocus());
    delete rows.takeAt(1);
    const bool restored = QTest::qWaitFor([this] { return rows[1]->box->hasFocus(); }, 5000);
    EXPECT_TRUE(restored);
}

TEST_F(KeyboardAccessTest, AButtonThatHidesItselfLeavesTheFocusInItsRow)
{
    QObject::connect(rows[1]->button, &QPushButton::clicked, rows[1]->button, &QWidget::hide);
    rows[1]->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab);
    ASSERT_TRUE(rows[1]->button->hasFocus());
    Press(Qt::Key_Space);
    EXPECT_TRUE(QTest::qWaitFor([this] { return rows[1]->box->hasFocus(); }, 5000));
}

TEST_F(KeyboardAccessTest, AButtonWhosePanelHidesComesBackWithTheFocus)
{
    for (const bool offersFirst : {true, false}) { // where the focus goes by itself: in the row, out of it
        PanelRow row(&form);
        row.offersFirst = offersFirst;
        column->insertWidget(0, &row);
        row.show();
        row.box->setFocus(Qt::TabFocusReason);
        Press(Qt::Key_Tab);
        ASSERT_TRUE(row.edit->hasFocus());
        row.panel->hide(); // as a row does that shows other data
        ASSERT_FALSE(row.edit->hasFocus());
        QCoreApplication::processEvents();
        EXPECT_TRUE(row.edit->isVisible());
        EXPECT_TRUE(row.edit->hasFocus());
        // And it shows no longer than the focus stays.
        add->setFocus(Qt::TabFocusReason);
        QCoreApplication::processEvents();
        EXPECT_FALSE(row.edit->isVisible());
    }
}

TEST_F(KeyboardAccessTest, AButtonWhosePanelHidesUnderTheMouseIsNotShownAgain)
{
    PanelRow row(&form);
    column->insertWidget(0, &row);
    row.show();
    row.panel->show();
    row.edit->setFocus(Qt::MouseFocusReason);
    row.panel->hide();
    QCoreApplication::processEvents();
    EXPECT_FALSE(row.edit->isVisible());
    EXPECT_TRUE(row.box->hasFocus());
}

TEST_F(KeyboardAccessTest, AClickElsewhereTakesTheFocusFromAButtonThatThenHides)
{
    PanelRow row(&form);
    column->insertWidget(0, &row);
    row.show();
    for (QPushButton* const button : {row.edit, row.first, rows[0]->button}) {
        auto* const box = button == rows[0]->button ? rows[0]->box : row.box;
        box->setFocus(Qt::TabFocusReason);
        for (int i = 0; i < 3 && !button->hasFocus(); ++i) {
            Press(Qt::Key_Tab);
        }
        ASSERT_TRUE(button->hasFocus());
        QTest::mousePress(rows[2]->box, Qt::LeftButton);
        rows[2]->box->setFocus(Qt::MouseFocusReason); // as the window does for a click
        QTest::mouseRelease(rows[2]->box, Qt::LeftButton);
        QCoreApplication::processEvents();
        EXPECT_FALSE(button->isVisible());
        EXPECT_TRUE(rows[2]->box->hasFocus());
    }
}

TEST_F(KeyboardAccessTest, AfterAClickThatTakesNoFocusTabDoesNotGoBackToAButtonThatHid)
{
    PanelRow row(&form);
    column->insertWidget(0, &row);
    row.show();
    row.box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab);
    ASSERT_TRUE(row.edit->hasFocus());
    QTest::mouseClick(&form, Qt::LeftButton, Qt::NoModifier, form.rect().bottomRight() - QPoint(1, 1));
    ASSERT_FALSE(row.edit->isVisible());
    QCoreApplication::processEvents();
    rows[1]->box->setFocus(Qt::TabFocusReason);
    Press(Qt::Key_Tab);
    QCoreApplication::processEvents();
    EXPECT_TRUE(rows[1]->button->hasFocus());
}

TEST_F(KeyboardAccessTest, WhenTheLastRowGoesTheRowBeforeHasTheFocus)
{
    rows[2]->box->setFocus(Qt::TabFocusReason);
    delete rows.takeLast();
    EXPECT_TRUE(QTest::qWaitFor([this] { return rows[1]->box->hasFocus(); }, 5000));
}

TEST_F(KeyboardAccessTest, ReadingOrderFollowsTheLayoutsNotTheOrderOfMaking)
{
    QWidget sheet;
    auto* d = new QWidget(&sheet);
    auto* c = new QWidget(&sheet);
    auto* b = new QWidget(&sheet);
    auto* a = new QWidget(&sheet);
    auto* loose = new QWidget(&sheet);
    auto* grid = new QGridLayout(&sheet);
    grid->addWidget(d, 1, 1);
    grid->addWidget(c, 1, 0);
    grid->addWidget(b, 0, 1);
    grid->addWidget(a, 0, 0);
    EXPECT_EQ(KeyboardAccess::GetReadingOrder(&sheet), (QVector<QWidget*>{&sheet, a, b, c, d, loose}));
}

} // namespace
