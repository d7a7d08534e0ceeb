#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtGui/QIconEngine>

/// Renders an SVG whose colour is `currentColor` in a colour of the application's palette.
class SymbolicIconEngine final : public QIconEngine
{
public:
    explicit SymbolicIconEngine(const QString& name);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override;

private:
    QString m_name;
    QByteArray m_svg;
};
