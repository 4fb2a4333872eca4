#include "ui/VerticalRuleView.h"

VerticalRuleView::VerticalRuleView(QWidget* parent)
    : StrokeView(parent)
{
    setHorizontal(false);
}
