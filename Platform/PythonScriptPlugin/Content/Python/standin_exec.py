"""Runs one command of the editor stand-in's Python plugin in this interpreter.

    python3 standin_exec.py MODE RESULT_FILE SOURCE_FILE [ARGS...]

MODE is "file" (SOURCE_FILE runs as a script, with ARGS in sys.argv), "statement" (its text is one
statement, whose value is printed) or "evaluate" (its text is one expression, whose repr is the result).
The source may be UTF-8 or UTF-16 with a byte order mark, as the editor writes text files.

RESULT_FILE receives the command's result: the value of an evaluation, or the error with its traceback.
The exit status is 0 when the command ran without error, 1 otherwise.
"""

import os
import sys
import traceback


def read_source(path):
    with open(path, "rb") as source:
        data = source.read()
    if data.startswith(b"\xff\xfe") or data.startswith(b"\xfe\xff"):
        return data.decode("utf-16")
    return data.decode("utf-8-sig")


def write_result(path, text):
    with open(path, "w", encoding="utf-8") as result:
        result.write(text)


def flush_streams():
    # The command may have put files in place of the streams and not reached the code that closes them.
    for stream in (sys.stdout, sys.stderr):
        try:
            stream.flush()
        except Exception:
            pass


def format_error():
    """The error as the interpreter would print it, without this runner's own frames."""
    error_type, error, frames = sys.exc_info()
    while frames is not None and frames.tb_frame.f_code.co_filename == __file__:
        frames = frames.tb_next
    return "".join(traceback.format_exception(error_type, error, frames))


def run(mode, source_path, args):
    text = read_source(source_path)
    scope = {"__name__": "__main__", "__builtins__": __builtins__}
    if mode == "file":
        scope["__file__"] = source_path
        sys.argv = [source_path] + args
        sys.path[0] = os.path.dirname(os.path.abspath(source_path))
        exec(compile(text, source_path, "exec"), scope)
        return ""
    if mode == "statement":
        exec(compile(text, "<string>", "single"), scope)
        return ""
    return repr(eval(compile(text, "<string>", "eval"), scope))


def main():
    mode, result_path, source_path = sys.argv[1:4]
    args = sys.argv[4:]
    # The stand-in's "unreal" module lives beside this file.
    sys.path.append(os.path.dirname(os.path.abspath(__file__)))
    try:
        result = run(mode, source_path, args)
    except SystemExit as stop:
        flush_streams()
        if stop.code in (None, 0):
            return 0
        write_result(result_path, "SystemExit: %s" % (stop.code,))
        return 1
    except BaseException:
        flush_streams()
        error = format_error()
        write_result(result_path, error)
        # The editor logs a command's error, whatever the command did with sys.stderr.
        sys.__stderr__.write(error)
        sys.__stderr__.flush()
        return 1
    flush_streams()
    write_result(result_path, result)
    return 0


if __name__ == "__main__":
    sys.exit(main())
