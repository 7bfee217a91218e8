// SPDX-License-Identifier: GPL-3.0-or-later
// The state is headers only; this file makes sure that they stand on their own.
#include "state/Halvern.h"
