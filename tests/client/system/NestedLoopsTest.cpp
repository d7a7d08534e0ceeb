#include "system/NestedLoops.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QEventLoop>
#include <QtCore/QThread>
#include <QtCore/QTimer>
#include <QtWidgets/QDialog>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMessageBox>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace {

/// Runs `open`, which opens `depth` nested event loops, inside a loop that stands for the application's own.
/// Returns whether `open` had returned when the action was called.
bool LeavesBeforeTheAction(const std::function<void()>& open, int depth = 1)
{
    QObject context;
    QEventLoop application;
    bool returned = false;
    bool leftFirst = false;
    QTimer::singleShot(0, &context, [&] {
        open();
        returned = true;
    });
    QTimer opened;
    QObject::connect(&opened, &QTimer::timeout, &context, [&] {
        if (QThread::currentThread()->loopLevel() <= depth) {
            return;
        }
        opened.stop();
        NestedLoops::LeaveThen(&context, [&] {
            leftFirst = returned;
            application.quit();
        });
    });
    opened.start(5);
    application.exec();
    return leftFirst;
}

} // namespace

TEST(NestedLoopsTest, WithoutOneTheActionIsCalledImmediately)
{
    bool called = false;
    QObject context;
    NestedLoops::LeaveThen(&context, [&called] { called = true; });
    EXPECT_TRUE(called);
}

TEST(NestedLoopsTest, QuestionIsClosedAndReturnsFirst)
{
    EXPECT_TRUE(LeavesBeforeTheAction([] {
        QMessageBox box(QMessageBox::Question, QString(), QStringLiteral("Reopen the tabs?"),
                        QMessageBox::Yes | QMessageBox::No);
        EXPECT_NE(box.exec(), QMessageBox::Yes);
    }));
}

TEST(NestedLoopsTest, DialogsInADialogAreClosedFromTheInnermost)
{
    EXPECT_TRUE(LeavesBeforeTheAction(
        [] {
            QDialog outer;
            QTimer::singleShot(0, &outer, [&outer] {
                QDialog inner(&outer);
                EXPECT_EQ(inner.exec(), QDialog::Rejected);
            });
            EXPECT_EQ(outer.exec(), QDialog::Rejected);
        },
        2));
}

TEST(NestedLoopsTest, OpenMenuIsClosed)
{
    EXPECT_TRUE(LeavesBeforeTheAction([] {
        QMenu menu;
        menu.addAction(QStringLiteral("Log out"));
        EXPECT_EQ(menu.exec(QPoint(10, 10)), nullptr);
    }));
}

TEST(NestedLoopsTest, ActionIsNotCalledWithoutItsContext)
{
    bool called = false;
    QEventLoop application;
    QTimer::singleShot(0, &application, [&] {
        QDialog dialog;
        auto context = std::make_unique<QObject>();
        QTimer::singleShot(0, &dialog, [&] {
            NestedLoops::LeaveThen(context.get(), [&called] { called = true; });
            context.reset();
        });
        dialog.exec();
        application.quit();
    });
    application.exec();
    QCoreApplication::processEvents();
    EXPECT_FALSE(called);
}
