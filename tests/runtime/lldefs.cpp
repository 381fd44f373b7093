#include "lldefs.c"
