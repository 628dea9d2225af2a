// Holds nothing: a set of precompiled headers needs one source to be compiled for.
