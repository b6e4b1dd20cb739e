// SPDX-License-Identifier: MIT
#include <gtest/gtest.h>
#include "verifica/verifica.h"
