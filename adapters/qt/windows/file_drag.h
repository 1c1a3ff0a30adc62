// Files that a person drags onto a window.
#pragma once

class QDropEvent;

namespace kavr6 {

class Form;

/// Asks the form whether it takes what is dragged, so that the cursor tells, and hands it over when it falls.
/// `event`: a drag that enters or moves, or a drop.
void DragFiles(Form& form, QDropEvent& event);

}  // namespace kavr6
