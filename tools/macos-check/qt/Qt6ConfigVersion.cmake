# Every Debian that the program supports has a version that suits.
set(PACKAGE_VERSION 6)
set(PACKAGE_VERSION_COMPATIBLE TRUE)
