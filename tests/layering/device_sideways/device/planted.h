#include "files/touchstone.h"
