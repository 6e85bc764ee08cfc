#include "analysis/sweep.h"
