#pragma once

#include <QtCore/QString>

/// What came of opening or writing the file.
struct SettingFileReport
{
    QString failure;        ///< a sentence for the user; empty: it went well
    QString setAsideFile;   ///< the new name of a damaged file; empty: there was none
    QString setAsideReason; ///< a sentence for the user
};
