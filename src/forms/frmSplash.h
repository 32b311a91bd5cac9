// The window of a start that takes its time. An ordinary start is over before anyone could read it.
#pragma once

#include <QSplashScreen>

namespace Quillon::Forms {

class frmMain;

class frmSplash : public QSplashScreen {
    Q_OBJECT

public:
    frmSplash();
};

/// Shows the splash window when the file to open is so large that reading it is noticed; it goes with `window`'s first
/// frame.
void ShowSplashFor(const QString& file, const frmMain& window);

}  // namespace Quillon::Forms
