#pragma once

/// Tells screen readers the roles, names and states of the controls in this folder. Controls call it when
/// they are made; calls after the first do nothing.
void installControlAccessibility();
