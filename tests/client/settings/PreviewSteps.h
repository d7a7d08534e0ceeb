#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>
#include <QtCore/QStringList>

class PreviewGateway;
class SettingsDialog;

/// What a user would do, one step after the other; then a picture of the screen.
class PreviewSteps final : public QObject
{
    Q_OBJECT

public:
    /// The objects are not owned and outlive this. `picture` is a file, or empty for none.
    PreviewSteps(SettingsDialog* dialog, PreviewGateway* gateway, const QStringList& steps,
                 const QString& picture, QObject* parent = nullptr);
    ~PreviewSteps() override;

private:
    void Next();
    void Do(const QString& action, const QString& argument);
    QWidget* Find(const QString& name) const;
    QWidget* Row(int index) const;
    void Finish();

    SettingsDialog* m_dialog;
    PreviewGateway* m_gateway;
    QStringList m_steps;
    QString m_picture;
};
