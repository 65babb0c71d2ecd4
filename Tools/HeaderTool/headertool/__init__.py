"""The stand-in's header tool: reads the reflection macros of C++ headers and writes the
.generated.h and .gen.cpp files that the engine's build would write for them."""
