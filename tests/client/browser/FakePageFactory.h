#pragma once

#include "FakePage.h"

#include "pages/IPageFactory.h"

#include <QtCore/QPointer>
#include <QtCore/QStringList>

/// Makes fake pages and keeps an eye on them, in the order in which they were made.
class FakePageFactory final : public IPageFactory
{
    Q_OBJECT

public:
    std::unique_ptr<ITabPage> CreatePage(QWidget* parent) override
    {
        auto page = std::make_unique<FakePage>(parent);
        pages << QPointer<FakePage>(page.get());
        return page;
    }
    void SetLanguage(const QString& language) override { languages << language; }

    bool ClearData() override
    {
        ++clears;
        return true;
    }

    int CountAlive() const
    {
        int alive = 0;
        for (const auto& page : pages) {
            alive += page ? 1 : 0;
        }
        return alive;
    }

    QList<QPointer<FakePage>> pages;
    QStringList languages;
    int clears = 0;
};
