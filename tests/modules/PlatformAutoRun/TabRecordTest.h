#pragma once

#include "AutoRunTest.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>

/// A client around the module's classes with tabs to record, and a look at the records behind their back.
class TabRecordTest : public AutoRunTest
{
protected:
    TabRecordTest();
    ~TabRecordTest() override;

    /// Appends a tab with a title and an icon of its own, made from its router URL.
    void AddTab(int type, const QString& routerUrl);
    void AddTabWithoutData(const QString& routerUrl);
    /// What `AddTab` gives a tab of that URL.
    static QString TitleOf(const QString& routerUrl);
    static QString IconOf(const QString& routerUrl);

    static void SignOut();
    void SetBelongTypeOfUser(const QString& belongType);

    /// The text that stands in the settings of the signed-in user.
    static QString GetRecoverText();
    static void SetRecoverText(const QString& text);
    static QString GetRestartText();
    static void SetRestartText(const QString& text);

    /// One of the stored sample files, which are never edited.
    static QByteArray ReadSample(const char* name);
};
