// What screen readers and keyboard users get from a control's widget: an
// accessible name and description taken from the control's definition, and
// keyboard choice in lists and grids. Kept apart from the widgets' making
// and layout (qt_control.cpp), which call these once per widget.
#pragma once

#include <QString>
#include <functional>
#include <string>

#include "platform/screendef.h"

class QWidget;

namespace platform {

// The accessible name of a control that has no caption to be announced by
// (text boxes, lists, grids, sliders, and buttons whose caption is still
// empty, such as the quiz's answers before a question): its help text up to
// the first full stop or colon, or else its name.
QString accessibleNameFromHelp(const ControlDefinition& definition);

// Gives the widget its accessible description (the help text), an
// accessible name (see accessibleNameFromHelp and nameAfterCaption), and
// focus by Tab for every control a user works. In a grid, Tab leaves the
// grid instead of walking its cells, so that the keyboard can reach the
// controls after it.
void makeAccessible(QWidget& widget, const ControlDefinition& definition, bool hasCaption);

// Names a captioned button by its caption (Qt's own way, which follows the
// caption) or, while the caption is empty, by the first sentence of its help
// text; called again whenever the caption changes.
void nameAfterCaption(QWidget& widget, const ControlDefinition& definition,
                      const std::string& caption);

// Enter or Space on a list or grid chooses its current item as a click on
// it does: the arrow keys move through the items, Enter or Space chooses.
// On a button, Enter presses it as Space does (Qt presses a button by Enter
// only in dialogs, and our screens are windows).
void chooseByKeyboard(QWidget& widget, const std::function<void()>& click);

}  // namespace platform
