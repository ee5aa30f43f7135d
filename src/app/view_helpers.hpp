#pragma once
// The pictures of the windows, drawn rather than shipped: the flags of the
// languages, the level marks, and the light that shows a hovered entry.
#include <QIcon>
#include <QPixmap>
#include <QString>
#include <functional>
#include <string>

class QAbstractButton;
class QGridLayout;
class QGroupBox;
class QLabel;
class QPushButton;
class QToolButton;
class QWidget;

namespace filo::app {

// Image3(index): Italy, Spain, France, Germany, Italy.
QPixmap flag_picture(int index, int height = 22);
// Image1: one to three bars for the level.
QPixmap level_picture(int level, int height = 40);
// The standard icons of the entries, by a name of this program.
QIcon entry_icon(const QWidget* widget, const char* name);

// A label that works as the caption of a button: a click on it clicks the
// button, and hovering it hovers the button.
void pair_caption(QLabel* caption, QAbstractButton* button);
// Runs f when the mouse enters the widget.
void on_hover(QWidget* widget, std::function<void()> f);

// A command of a window's menu, in its row of the grid: a flat button with
// its icon and, beside it, its caption (pair_caption), in a type larger by
// the given points.
struct Command {
    QToolButton* button;
    QLabel* caption;
};
Command add_command(QWidget* parent, QGridLayout* grid, int row, const QString& button_name,
                    const char* icon, int icon_size, const QString& caption_name, int larger_by);

// The label of a window's help panel, alone in its frame: words wrapped,
// from the top left.
QLabel* add_help_label(QGroupBox* frame, const char* name);

// The line's state as every window shows it: green on line, yellow off.
void show_line_state(QLabel* label, const std::string& state, bool on_line);
// The "i" that shows and hides the help panel: lit while the panel shows.
void light_help_button(QPushButton* button, bool on);

QString qs(const std::string& text);

}  // namespace filo::app
