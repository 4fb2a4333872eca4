#pragma once

/// Tells screen readers what the circles show: the progress ring is a progress bar with value, caption and
/// percentage, the goal circle a radio button. Circles call it when they are made; calls after the first do
/// nothing.
void installCircleAccessibility();
