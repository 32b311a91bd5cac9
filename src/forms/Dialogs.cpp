// Which window edits which model.
#include <QDialog>
#include <typeindex>
#include <unordered_map>

#include "forms/frmChordBatch.h"
#include "forms/frmChordPrinter.h"
#include "forms/frmFileProperties.h"
#include "forms/frmImportReport.h"
#include "forms/frmMain.h"
#include "forms/frmNewChord.h"
#include "forms/frmOptions.h"
#include "forms/frmScaleEditor.h"
#include "forms/frmScalePrinter.h"
#include "forms/frmTrackProperties.h"
#include "forms/frmTuningEditor.h"
#include "forms/frmTuningLoader.h"
#include "forms/ntne_frmASCIIImport.h"
#include "forms/ntne_frmAddTrack.h"
#include "forms/ntne_frmBarKeySig.h"
#include "forms/ntne_frmBarTimeSig.h"
#include "forms/ntne_frmBend.h"
#include "forms/ntne_frmChord.h"
#include "forms/ntne_frmCoda.h"
#include "forms/ntne_frmCutCopyPaste.h"
#include "forms/ntne_frmEndRepeat.h"
#include "forms/ntne_frmExport.h"
#include "forms/ntne_frmFixBars.h"
#include "forms/ntne_frmGoto.h"
#include "forms/ntne_frmGrace.h"
#include "forms/ntne_frmInsertBar.h"
#include "forms/ntne_frmInstrument.h"
#include "forms/ntne_frmLyrics.h"
#include "forms/ntne_frmMIDIImport.h"
#include "forms/ntne_frmNote.h"
#include "forms/ntne_frmPageSetup.h"
#include "forms/ntne_frmPassword.h"
#include "forms/ntne_frmPrintOptions.h"
#include "forms/ntne_frmRemoveBar.h"
#include "forms/ntne_frmSpeedTrainer.h"
#include "forms/ntne_frmText.h"
#include "forms/ntne_frmTranspose.h"
#include "forms/ntne_frmTremBar.h"
#include "forms/ntne_frmTrill.h"
#include "forms/ntne_frmTuning.h"
#include "shell/AsciiImportModel.h"
#include "shell/BarModels.h"
#include "shell/BatchFixModel.h"
#include "shell/ChordModel.h"
#include "shell/DialogModels.h"
#include "shell/EffectModels.h"
#include "shell/GoCommands.h"
#include "shell/InstrumentModel.h"
#include "shell/LyricsModel.h"
#include "shell/MidiImportModel.h"
#include "shell/NoteModels.h"
#include "shell/PasswordModel.h"
#include "shell/PrintModel.h"
#include "shell/TextExportModel.h"
#include "shell/TuningLoaderModel.h"
#include "shell/TuningModel.h"
#include "tools/ChordBatch.h"
#include "tools/ChordEditor.h"
#include "tools/ChordSheet.h"
#include "tools/ScaleEditModel.h"
#include "tools/ScaleSheet.h"
#include "tools/TuningEditModel.h"

namespace Quillon::Forms {

namespace {

using Shell::DialogModel;

template <class Window, class Model>
bool Exec(DialogModel& model, QWidget* parent) {
    return Window(static_cast<Model&>(model), parent).exec() == QDialog::Accepted;
}

template <class Window, class Model>
auto Row() {
    return std::pair<const std::type_index, bool (*)(DialogModel&, QWidget*)>(typeid(Model), Exec<Window, Model>);
}

const std::unordered_map<std::type_index, bool (*)(DialogModel&, QWidget*)>& Windows() {
    static const std::unordered_map<std::type_index, bool (*)(DialogModel&, QWidget*)> table = {
        Row<ntne_frmAddTrack, Shell::AddTrackModel>(),
        Row<ntne_frmInsertBar, Shell::InsertBarModel>(),
        Row<ntne_frmRemoveBar, Shell::RemoveBarModel>(),
        Row<ntne_frmBarTimeSig, Shell::BarTimeSigModel>(),
        Row<ntne_frmBarKeySig, Shell::BarKeySigModel>(),
        Row<ntne_frmEndRepeat, Shell::EndRepeatModel>(),
        Row<ntne_frmCoda, Shell::CodaModel>(),
        Row<ntne_frmCutCopyPaste, Shell::CutCopyPasteModel>(),
        Row<ntne_frmTranspose, Shell::TransposeModel>(),
        Row<ntne_frmBend, Shell::BendModel>(),
        Row<ntne_frmTremBar, Shell::TremBarModel>(),
        Row<ntne_frmGrace, Shell::GraceModel>(),
        Row<ntne_frmTrill, Shell::TrillModel>(),
        Row<ntne_frmMIDIImport, Shell::MidiImportModel>(),
        Row<ntne_frmNote, Shell::NoteModel>(),
        Row<ntne_frmText, Shell::TextModel>(),
        Row<ntne_frmChord, Shell::ChordModel>(),
        Row<frmFileProperties, Shell::FilePropertiesModel>(),
        Row<frmTrackProperties, Shell::TrackPropertiesModel>(),
        Row<frmOptions, Shell::OptionsModel>(),
        Row<ntne_frmSpeedTrainer, Shell::SpeedTrainerModel>(),
        Row<ntne_frmPageSetup, Shell::PageSetupModel>(),
        Row<ntne_frmPrintOptions, Shell::PrintModel>(),
        Row<ntne_frmLyrics, Shell::LyricsModel>(),
        Row<ntne_frmTuning, Shell::TuningModel>(),
        Row<ntne_frmInstrument, Shell::InstrumentModel>(),
        Row<ntne_frmGoto, Shell::GotoModel>(),
        Row<ntne_frmGotoBar, Shell::GotoBarModel>(),
        Row<ntne_frmPassword, Shell::PasswordModel>(),
        Row<ntne_frmFixBars, Shell::BatchFixModel>(),
        Row<ntne_frmASCIIImport, Shell::AsciiImportModel>(),
        Row<frmImportReport, Shell::ImportReportModel>(),
        Row<ntne_frmExport, Shell::TextExportModel>(),
        Row<frmNewChord, Tools::ChordEditorModel>(),
        Row<frmChordBatch, Tools::ChordBatchModel>(),
        Row<frmChordPrinter, Tools::ChordSheetModel>(),
        Row<frmTuningLoader, Shell::TuningLoaderModel>(),
        Row<frmTuningEditor, Tools::TuningEditModel>(),
        Row<frmScaleEditor, Tools::ScaleEditModel>(),
        Row<frmScalePrinter, Tools::ScaleSheetModel>(),
    };
    return table;
}

}  // namespace

bool frmMain::Edit(DialogModel& model) { return Windows().at(typeid(model))(model, this); }

}  // namespace Quillon::Forms
