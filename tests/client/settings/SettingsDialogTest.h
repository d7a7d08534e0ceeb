#pragma once

#include "FakeSettingFactory.h"
#include "SlowGateway.h"

#include "settings/SettingsDialog.h"

#include <QtCore/QStringList>
#include <QtWidgets/QLabel>
#include <QtWidgets/QListWidget>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

/// The dialog with one page of a module, three rows on it, and a gateway that answers when the test says so.
class SettingsDialogTest : public ::testing::Test
{
protected:
    SettingsDialogTest();
    ~SettingsDialogTest() override;

    /// Makes and shows the dialog at the module's page, with its rows there.
    void Open();
    void OpenWithoutAnswer();
    /// Makes the dialog without showing it.
    void Make();
    void AnswerAll();

    FakeSettingsPage* Page() const { return m_factory.page; }
    QListWidget* List() const;
    QStringList Titles() const;
    /// Selects the page of that title with the mouse.
    void Choose(const QString& title);
    /// Of the page in front.
    QWidget* Area() const;
    QLabel* SaveLine() const;
    QWidget* Notice() const;
    QString NoticeText() const;
    /// Clicks the middle of the box of a row.
    void Tick(int row);
    void Type(const QString& text);
    void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
    /// Once a question is open, presses the button with that text.
    void AnswerQuestion(const QString& button);

    SlowGateway m_gateway;
    FakeSettingFactory m_factory;
    SettingsServices m_services;
    std::unique_ptr<SettingsDialog> m_dialog;
    QStringList m_choices; ///< what was chosen, in order
    int m_questions = 0;
    QString m_rememberedPage = QStringLiteral("10,60");
    QByteArray m_rememberedGeometry;
};
