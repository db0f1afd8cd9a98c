// Nothing of its own: CMake compiles headers only with a source.
