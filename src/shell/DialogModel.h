// What every model of a dialog is, so that a window can be found for it by its type.
#pragma once

#include <string_view>

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

/// True for a text with the signs that begin and end what a music file keeps: one saved with it can't be read on.
inline bool HoldsFileSigns(std::string_view text) { return text.find_first_of("<>") != std::string_view::npos; }

}  // namespace Quillon::Shell
