#include "pages/PageDialog.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

#include <gtest/gtest.h>

#include <memory>

namespace {

class PageDialogTest : public ::testing::Test
{
protected:
    using Kind = PageDialog::Kind;

    void Make(Kind kind, const QString& address = QStringLiteral("https://shop.example/orders"),
              bool offerSilence = false)
    {
        m_dialog =
            std::make_unique<PageDialog>(kind, QUrl(address), m_text, QStringLiteral("five"), offerSilence);
    }
    QString GetLabel(const char* name) const
    {
        const auto* const label = m_dialog->findChild<QLabel*>(QLatin1String(name));
        return label && !label->isHidden() ? label->text() : QString();
    }
    QString GetButton(QDialogButtonBox::StandardButton which) const
    {
        const QPushButton* const button = m_dialog->findChild<QDialogButtonBox*>()->button(which);
        return button ? button->text() : QString();
    }
    int CountFields() const { return m_dialog->findChildren<QLineEdit*>().size(); }

    QString m_text = QStringLiteral("<b>How many?</b>");
    std::unique_ptr<PageDialog> m_dialog;
};

} // namespace

TEST_F(PageDialogTest, AnAlertNamesItsHostAndHasOneButton)
{
    Make(Kind::Alert);
    EXPECT_EQ(GetLabel("page_dialog_head"), QStringLiteral("The page at “shop.example” says:"));
    EXPECT_EQ(GetButton(QDialogButtonBox::Ok), QStringLiteral("OK"));
    EXPECT_TRUE(GetButton(QDialogButtonBox::Cancel).isEmpty());
    EXPECT_EQ(CountFields(), 0);
}

TEST_F(PageDialogTest, WhatAPageSaysIsPlainTextOfLimitedLength)
{
    m_text = m_text.repeated(1000);
    Make(Kind::Alert);
    EXPECT_EQ(GetLabel("page_dialog_text"), m_text.left(2000));
    EXPECT_EQ(m_dialog->findChild<QLabel*>(QStringLiteral("page_dialog_text"))->textFormat(), Qt::PlainText);
}

TEST_F(PageDialogTest, APageWithoutAHostIsThisPage)
{
    Make(Kind::Alert, QStringLiteral("about:blank"));
    EXPECT_EQ(GetLabel("page_dialog_head"), QStringLiteral("The page at “This page” says:"));
}

TEST_F(PageDialogTest, AConfirmationCanBeDeclined)
{
    Make(Kind::Confirm);
    EXPECT_EQ(GetButton(QDialogButtonBox::Cancel), QStringLiteral("Cancel"));
    EXPECT_EQ(CountFields(), 0);
}

TEST_F(PageDialogTest, APromptHasAFieldWithTheProposal)
{
    Make(Kind::Prompt);
    EXPECT_EQ(CountFields(), 1);
    EXPECT_EQ(m_dialog->GetInput(), QStringLiteral("five"));
    EXPECT_TRUE(m_dialog->GetPassword().isEmpty());
}

TEST_F(PageDialogTest, ALeaveQuestionIsTheClientsOwnText)
{
    Make(Kind::Leave);
    EXPECT_EQ(GetLabel("page_dialog_head"), QStringLiteral("Leave the page at “shop.example”?"));
    EXPECT_EQ(GetLabel("page_dialog_text"), QStringLiteral("Changes you made there may not be saved."));
    EXPECT_EQ(GetButton(QDialogButtonBox::Ok), QStringLiteral("Leave"));
    EXPECT_EQ(GetButton(QDialogButtonBox::Cancel), QStringLiteral("Stay"));
}

TEST_F(PageDialogTest, ALogInHasANameAndAHiddenPassword)
{
    Make(Kind::LogIn);
    const auto fields = m_dialog->findChildren<QLineEdit*>();
    ASSERT_EQ(fields.size(), 2);
    EXPECT_EQ(fields.at(1)->echoMode(), QLineEdit::Password);
    fields.at(0)->setText(QStringLiteral("ann"));
    fields.at(1)->setText(QStringLiteral("secret"));
    EXPECT_EQ(m_dialog->GetInput(), QStringLiteral("ann"));
    EXPECT_EQ(m_dialog->GetPassword(), QStringLiteral("secret"));
}

TEST_F(PageDialogTest, ALogInWarnsWhereThePasswordIsNotEncrypted)
{
    Make(Kind::LogIn);
    EXPECT_TRUE(GetLabel("page_dialog_warning").isEmpty());
    Make(Kind::LogIn, QStringLiteral("http://shop.example/orders"));
    EXPECT_TRUE(GetLabel("page_dialog_warning").contains(QStringLiteral("not encrypted")));
}

TEST_F(PageDialogTest, ASiteWithoutANameShowsNoEmptyLine)
{
    m_text.clear();
    Make(Kind::LogIn);
    EXPECT_TRUE(m_dialog->findChild<QLabel*>(QStringLiteral("page_dialog_text"))->isHidden());
}

TEST_F(PageDialogTest, SilenceIsWantedOnlyWhereItIsOfferedAndTicked)
{
    Make(Kind::Alert);
    EXPECT_FALSE(m_dialog->IsSilenceWanted());
    Make(Kind::Alert, QStringLiteral("https://shop.example/"), true);
    EXPECT_FALSE(m_dialog->IsSilenceWanted());
    m_dialog->findChild<QCheckBox*>()->setChecked(true);
    EXPECT_TRUE(m_dialog->IsSilenceWanted());
}
