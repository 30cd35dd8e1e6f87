# Installation and packaging for Windows.
