// SPDX-License-Identifier: MIT
// text/primitive.h
//
// What every rule is built on, in one header: texts, numbered errors, the file system and the
// sequential files. It knows nothing of what the program is for.
#pragma once

#include "text/canali.h"
#include "text/codifica.h"
#include "text/disco/archivio.h"
#include "text/disco/disco.h"
#include "text/errore.h"
#include "text/flusso.h"
#include "text/testo.h"
