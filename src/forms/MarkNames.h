// The names of a note's marks as lists of a dialog show them.
#pragma once

#include <QStringList>

namespace Quillon::Forms {

QStringList DynamicNames();     ///< from the loudest
QStringList HarmonicNames();    ///< by their code, none first
QStringList TechniqueNames();   ///< as in their menu, none first
QStringList LeftFingerNames();  ///< by their code, none first
QStringList RightFingerNames();

}  // namespace Quillon::Forms
