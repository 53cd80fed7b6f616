import QtQuick
import QtQuick.Controls

// The program's button; markup declares no other kind. However it is pressed
// (pointer, keyboard, or an assistive tool's press action) it does what a
// click does: it takes the focus first where a click would, so that a text
// box being edited, which hands its text on when it loses the focus, has done
// so before the press is handled.
Button {
    id: button

    Accessible.onPressAction: {
        if (!button.enabled) {
            return;
        }
        if (button.focusPolicy & Qt.ClickFocus) {
            button.forceActiveFocus(Qt.MouseFocusReason);
        }
        button.clicked();
    }


    FocusRing {}
}
