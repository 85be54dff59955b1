// Saving configurations: what would be lost, and what will be another value, is
// shown before anything is written; what is refused is asked about or told.
#ifndef ZELDEBUGDIALOG_DIALOG_SAVING_H
#define ZELDEBUGDIALOG_DIALOG_SAVING_H

#include <vector>

#include "pages/SessionModel.h"

class QWidget;

namespace ZelDebugDialog::dialog {

/// Asks as far as it has to. One that cannot be saved is told of, and keeps
/// none of the others from being saved.
/// @return whether all of them are saved
bool saveConfigurations(const std::vector<SessionModel *> &models,
                        QWidget *parent);

/// Over a file that has changed, without asking for that again.
bool overwrite(SessionModel &model, QWidget *parent);

} // namespace ZelDebugDialog::dialog

#endif
