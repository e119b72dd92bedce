#!/usr/bin/env bash
# The Designer program in a window: the widget is dragged from the widget box to a form, a double
# click opens its property pages, OK is one step that undo takes back, saving keeps the settings.
# shellcheck source=tests/window/lib/session.sh
source "$(dirname "${BASH_SOURCE[0]}")/../../window/lib/session.sh"

: "${TABLIO_DESIGNER:?the path of Qt Designer}" "${QT_PLUGIN_PATH:?the directory of the plug-in}"
form="$work/form.ui"
export HOME="$work" XDG_CONFIG_HOME="$work/config"

no_window_named() { ! window_named "$1"; }
form_has() { grep -q "$1" "$form"; }
form_lacks() { ! form_has "$1"; }
save() {
    xdotool windowactivate "$form_window"
    within 10 is_active "$form_window" || fail "the form does not become active"
    xdotool key --clearmodifiers ctrl+s
}

# Windows of their own: a form inside a main window is nothing that X knows.
mkdir -p "$XDG_CONFIG_HOME/QtProject"
printf '[UI]\ncurrentMode=1\n' >"$XDG_CONFIG_HOME/QtProject/Designer.conf"
cat >"$form" <<'END'
<ui version="4.0">
 <class>Form</class>
 <widget class="QWidget" name="Form">
  <property name="geometry"><rect><x>0</x><y>0</y><width>420</width><height>260</height></rect></property>
 </widget>
</ui>
END

start "$TABLIO_DESIGNER" "$form"
within 60 window_named 'form.ui' || fail "Designer does not show the form"
form_window=$window
xdotool windowactivate "$form_window"
within 20 is_active "$form_window" || fail "the form does not become active"
picture form

# What the mouse does before Designer has painted a window is lost, so both are tried again.
window_named '^Qt Designer$' || fail "Designer shows no widget box"
box_window=$window
drag_from_box() {
    xdotool windowactivate "$box_window"
    xdotool mousemove --window "$box_window" 150 112 click --repeat 3 --delay 60 1
    xdotool type --delay 20 'Tablio' # Into the box's filter: it leaves our widget alone.
    sleep 0.5
    xdotool mousemove --window "$box_window" 90 155 mousedown 1
    xdotool mousemove --window "$box_window" 130 175
    local step
    for step in 1 2 3 4; do
        sleep 0.1
        xdotool mousemove --window "$form_window" $((16 + step)) $((16 + step))
    done
    xdotool mouseup 1
    within 4 window_named 'form.ui\*'
}
open_pages() {
    xdotool mousemove --window "$form_window" 210 150 click --repeat 2 --delay 60 1
    within 4 window_named '^Property Pages'
}
drag_from_box || drag_from_box || drag_from_box || fail "the widget cannot be dragged to the form"
picture dropped
open_pages || open_pages || open_pages || fail "a double click does not open the property pages"
pages=$window
within 10 is_active "$pages" || fail "the property pages have no keyboard"
xdotool key --clearmodifiers alt+r
xdotool type --delay 30 '25'
picture general
xdotool key --clearmodifiers ctrl+Tab
xdotool type --delay 30 'Article'
picture columns
xdotool key --clearmodifiers Return
within 10 no_window_named '^Property Pages' || fail "Enter does not close the property pages"

save
within 20 form_has '^Rows Long 25$' || fail "the saved form has no settings"
form_has 'ColTextHeader0 String &quot;Article&quot;' || fail "the saved form has no column header"
form_has '<widget class="tablio::qt::TablioWidget" name="tablio">' || fail "the saved form has no grid"
form_has '<header location="global">tablio/qt/tablio_widget.h' || fail "the saved form names no header"
xdotool key --clearmodifiers ctrl+z
save
within 20 form_lacks 'Rows Long' || fail "undo does not take the pages back"
