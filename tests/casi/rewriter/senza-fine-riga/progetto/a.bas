Option Explicit
x = 1