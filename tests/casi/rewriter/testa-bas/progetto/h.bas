Option Private Module
Option Explicit
Option Base 1
