# SPDX-License-Identifier: MIT
# The test programs of this directory: morvella_prova(NAME FILE...)
