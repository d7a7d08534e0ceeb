#pragma once

#include "MessageContent.h"
#include "browser/TabRecord.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QUrl>

struct PageFailure;

/// What a tab says where it has no page to show, in the present language.
class TabMessages final
{
    Q_DECLARE_TR_FUNCTIONS(TabMessages)

public:
    static MessageContent MakeStartPage();
    static MessageContent MakeNativeApp(const TabRecord& tab);
    /// For a tab that has a trouble.
    static MessageContent MakeTrouble(const TabRecord& tab);
    static MessageContent MakeRendererDied(const QUrl& address);
    static MessageContent MakeFailure(const PageFailure& failure);
};
