#pragma once

#include "ui/HorizontalRuleView.h"

#include <QScrollArea>

/// The part of a window that scrolls where the screen is too small for all of it. Anywhere else it looks like
/// a plain widget: as large as its content, without frame or bar. The bar lies over the content's margin, so
/// that nothing moves aside for it.
class ScrollingBody final : public QScrollArea {
    Q_OBJECT

public:
    explicit ScrollingBody(QWidget* parent = nullptr);
    ~ScrollingBody() override;

    [[nodiscard]] QSize sizeHint() const override;
    [[nodiscard]] QSize minimumSizeHint() const override;

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void markEdges();
    /// Whoever goes through the controls by keyboard sees each.
    void follow(QWidget* focused);

    HorizontalRuleView m_above {this}; ///< shown where content goes on under the edge
    HorizontalRuleView m_below {this};
};
