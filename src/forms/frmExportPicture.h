// Export as picture: which pages, at what resolution.
#pragma once

#include "forms/ModelDialog.h"

namespace Quillon::Forms {

class frmExportPicture : public ModelDialog {
    Q_OBJECT

public:
    struct Choice {
        int Page = 0;  ///< from 1, 0 for all
        int Dpi = 150;
    };
    /// `vector` pictures have no resolution to choose.
    frmExportPicture(Choice& choice, int pages, int currentPage, bool vector, QWidget* parent);

protected:
    QString ComplaintText(std::string_view textKey) const override;

private:
    Choice& chosen;
};

}  // namespace Quillon::Forms
