"""The editor's scripting module, as far as the editor stand-in offers it.

Only the log functions exist. Their lines reach the editor's log under LogPython: each goes to the
interpreter's own standard output with a mark that tells its verbosity, whatever sys.stdout is now.
"""

import sys

_MARK = "\x1f"


def _emit(kind, message):
    stream = sys.__stdout__
    if stream is None:
        return
    for line in str(message).splitlines() or [""]:
        stream.write(_MARK + kind + _MARK + line + "\n")
    stream.flush()


def log(arg):
    """Logs the argument as information."""
    _emit("I", arg)


def log_warning(arg):
    """Logs the argument as a warning."""
    _emit("W", arg)


def log_error(arg):
    """Logs the argument as an error."""
    _emit("E", arg)


def __getattr__(name):
    raise AttributeError(
        "module 'unreal' has no attribute '%s' (the editor stand-in offers log, log_warning and log_error)" % name
    )
