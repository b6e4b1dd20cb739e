# SPDX-License-Identifier: MIT
# The main window, its library and its program "morvella".
