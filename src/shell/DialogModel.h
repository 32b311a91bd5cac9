// What every model of a dialog is, so that a window can be found for it by its type.
#pragma once

namespace Quillon::Shell {

/// Loaded from the open document, edited by a window, applied to the document. See Dialogs::Edit.
struct DialogModel {
    virtual ~DialogModel() = default;

protected:
    DialogModel() = default;
    DialogModel(const DialogModel&) = default;
    DialogModel(DialogModel&&) = default;
    DialogModel& operator=(const DialogModel&) = default;
    DialogModel& operator=(DialogModel&&) = default;
};

}  // namespace Quillon::Shell
