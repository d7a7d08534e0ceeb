#include "QuestionAnswer.h"

#include "system/QuestionWatch.h"

#include "base-ui/PackagedMsgBox.h"

#include <QtTest/QSignalSpy>
#include <QtWidgets/QMessageBox>

#include <gtest/gtest.h>

class QuestionWatchTest : public ::testing::Test
{
protected:
    const QString m_text = QStringLiteral("recover the tabs?");
    QuestionWatch m_watch;
    QSignalSpy m_asked{&m_watch, &QuestionWatch::SigAsked};
    QSignalSpy m_answered{&m_watch, &QuestionWatch::SigAnswered};
};

TEST_F(QuestionWatchTest, QuestionIsReportedWhileItIsOpenAndTheAnswerAfterwards)
{
    QuestionAnswer yes(QStringLiteral("yes_button"));
    int askedMeanwhile = -1;
    int answeredMeanwhile = -1;
    yes.SetBefore([&] {
        askedMeanwhile = m_asked.count();
        answeredMeanwhile = m_answered.count();
    });
    PackagedMsgBox::question(m_text);
    EXPECT_EQ(askedMeanwhile, 1);
    EXPECT_EQ(answeredMeanwhile, 0);
    EXPECT_EQ(m_asked.count(), 1);
    EXPECT_EQ(m_asked.first(), QVariantList{m_text});
}

TEST_F(QuestionWatchTest, AnswersHaveTheNamesOfTheButtons)
{
    {
        const QuestionAnswer yes(QStringLiteral("yes_button"));
        EXPECT_EQ(PackagedMsgBox::question(m_text), QMessageBox::Yes);
    }
    {
        const QuestionAnswer no(QStringLiteral("no_button"));
        EXPECT_EQ(PackagedMsgBox::question(m_text), QMessageBox::No);
    }
    {
        const QuestionAnswer enter(Qt::Key_Return);
        EXPECT_EQ(PackagedMsgBox::question(m_text), QMessageBox::Yes);
    }
    ASSERT_EQ(m_answered.count(), 3);
    EXPECT_EQ(m_answered.at(0), (QVariantList{m_text, QStringLiteral("Yes")}));
    EXPECT_EQ(m_answered.at(1), (QVariantList{m_text, QStringLiteral("No")}));
    EXPECT_EQ(m_answered.at(2), (QVariantList{m_text, QStringLiteral("Yes")}));
}

TEST_F(QuestionWatchTest, EscapeCountsAsTheNegativeButton)
{
    const QuestionAnswer escape(Qt::Key_Escape);
    EXPECT_EQ(PackagedMsgBox::question(m_text), QMessageBox::No);
    PackagedMsgBox::question(m_text, nullptr, QMessageBox::Ok | QMessageBox::Cancel);
    ASSERT_EQ(m_answered.count(), 2);
    EXPECT_EQ(m_answered.at(0), (QVariantList{m_text, QStringLiteral("No")}));
    EXPECT_EQ(m_answered.at(1), (QVariantList{m_text, QStringLiteral("Cancel")}));
}

TEST_F(QuestionWatchTest, OtherDialogsAreNotReported)
{
    const QuestionAnswer escape(Qt::Key_Escape);
    QMessageBox box(QMessageBox::Question, QString(), m_text, QMessageBox::Yes | QMessageBox::No);
    box.exec();
    EXPECT_EQ(m_asked.count(), 0);
    EXPECT_EQ(m_answered.count(), 0);
}

TEST_F(QuestionWatchTest, DestroyedWatchReportsNothing)
{
    auto gone = std::make_unique<QuestionWatch>();
    int told = 0;
    QObject::connect(gone.get(), &QuestionWatch::SigAnswered, gone.get(), [&told] { ++told; });
    QuestionAnswer yes(QStringLiteral("yes_button"));
    yes.SetBefore([&gone] { gone.reset(); });
    PackagedMsgBox::question(m_text);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(m_answered.count(), 1);
}
