#pragma once

#include "pages/IPageFactory.h"

#include <QtCore/QByteArray>
#include <QtNetwork/QNetworkAccessManager>

/// Pages of text, for where no web engine is to be had. Cookies last as long as the factory, which is one
/// user's. Nothing is kept on disk.
class PlainPageFactory final : public IPageFactory
{
    Q_OBJECT

public:
    explicit PlainPageFactory(const QString& language, QObject* parent = nullptr);

    std::unique_ptr<ITabPage> CreatePage(QWidget* parent) override;
    void SetLanguage(const QString& language) override;
    bool ClearData() override;

private:
    QNetworkAccessManager m_network;
    QByteArray m_language;
};
