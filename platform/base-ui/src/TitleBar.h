#pragma once

#include <QtCore/QPoint>
#include <QtWidgets/QWidget>

#include <memory>

class CloseButton;
class QLabel;
class ScaleWatch;

/// The top of a dialog: its title, a button to close it, and the place to drag it by.
class TitleBar final : public QWidget
{
    Q_OBJECT

public:
    TitleBar(bool closable, bool movable, QWidget* parent);
    ~TitleBar() override;

    void SetText(const QString& text);
    /// Null when the title bar cannot close the dialog.
    QWidget* GetCloseButton() const noexcept;

Q_SIGNALS:
    void SigClose();

protected:
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    void AdjustForScale();
    void Retranslate();

    QLabel* m_label;
    CloseButton* m_closeButton = nullptr;
    bool m_movable;
    bool m_dragging = false;
    std::unique_ptr<ScaleWatch> m_scaleWatch;
    QPoint m_grip; ///< of the pointer, from the window's corner
};
