// Colours that a palette has no role for, for dark and for light.
#ifndef ZELDEBUGDIALOG_DIALOG_PALETTE_H
#define ZELDEBUGDIALOG_DIALOG_PALETTE_H

#include <string>

#include <QColor>
#include <QPalette>

namespace ZelDebugDialog::dialog {

/// What a text is to the person.
enum class Tone { plain, disabled, quiet, fault, doubt, link };

bool isDark(const QPalette &palette);
QColor toneColour(Tone tone, const QPalette &palette);
/// Of a word of the command, by its role.
QColor roleColour(const std::string &role, const QPalette &palette);
QColor faultColour(const QPalette &palette);
QColor doubtColour(const QPalette &palette);
/// Behind the words of the setting that has the focus.
QColor markColour(const QPalette &palette);
/// For texts that matter less; still well legible.
QColor quietColour(const QPalette &palette);
/// Behind a remark that asks for an answer.
QColor remarkColour(const QPalette &palette);

} // namespace ZelDebugDialog::dialog

#endif
