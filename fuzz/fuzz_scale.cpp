#include "fuzz/Main.h"

QUILLON_FUZZ(Quillon::Fuzz::Scale);
