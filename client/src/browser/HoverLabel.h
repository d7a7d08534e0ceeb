#pragma once

#include <QtWidgets/QLabel>

/// Shows the address of the link under the mouse pointer, in the lower left corner of its parent.
class HoverLabel final : public QLabel
{
    Q_OBJECT

public:
    explicit HoverLabel(QWidget* parent);

    /// Hides the label when the address is empty.
    void ShowAddress(const QString& address);
    /// Call when the parent has another size.
    void Place();
};
