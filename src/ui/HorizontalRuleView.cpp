#include "ui/HorizontalRuleView.h"

HorizontalRuleView::HorizontalRuleView(QWidget* parent)
    : StrokeView(parent)
{
    setHorizontal(true);
}
