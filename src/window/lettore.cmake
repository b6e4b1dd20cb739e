# SPDX-License-Identifier: MIT
# The reader of listings, its library and its program "morvella-lettore".
