#pragma once

#include "pages/IPageFactory.h"

#include <QtCore/QByteArray>
#include <QtNetwork/QNetworkAccessManager>

/// Pages as text, where there is no web engine. Cookies last as long as the factory, which belongs to one
/// user. Nothing is kept on disk.
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
