// What is printed: which tracks, with which texts at the head and the foot of a page.
#pragma once

#include <memory>
#include <optional>

#include "exchange/PrintJob.h"
#include "platform/PageTarget.h"
#include "shell/DialogModel.h"

namespace Quillon::Shell {

/// Edited before a drawn PDF is written, in the print dialog and in the preview; kept from one to the next.
struct PrintModel : DialogModel {
    bool AllTracks = false;
    Exchange::RunningFields Fields = Exchange::DefaultRunningFields;

    /// As they were chosen last; all tracks only where there are several.
    void Load();
    void Keep() const;
    Exchange::PrintOptions Options() const;
};

/// Text key of a field's name.
const char* RunningFieldText(Exchange::RunningField field);

/// A printer that the person chose, ready for pages.
struct ChosenPrinter {
    std::unique_ptr<PageTarget> Pages;
    int First = 0;  ///< pages from 1; 0 for all
    int Last = 0;
    int Copies = 1;  ///< to be made by the program: of a printer that makes them itself 1
    bool Collated = true;
};

/// Prints on a printer, with the progress in the main window; the pages chosen are cut to those that there are.
void PrintOn(ChosenPrinter printer, const PrintModel& model);

void mnuFilePrint_Click();
void mnuFilePrintPreview_Click();
void mnuFileExportEngraved_Click();

}  // namespace Quillon::Shell
