"""Runs the user's script or a prompt, as Python's own program would."""

import atexit
import code
import gc
import io
import os
import signal
import sys
import threading
import tokenize
import traceback


def open_streams(has_output):
    """What the interpreter's start turned away comes back for a script of the user's own."""
    text = {"encoding": "utf-8", "errors": "surrogateescape", "closefd": False}
    output = open(1, "w", buffering=1, **text) if has_output else None
    sys.stdout = sys.__stdout__ = output
    try:
        sys.stdin = sys.__stdin__ = open(0, **text)
    except OSError:
        pass  # A directory, say: it stays at its end.


def describe(arguments):
    """Tells a script who it is. As with Python its folder is the first to import from."""
    sys.argv = arguments
    path = arguments[0]
    sys.path.insert(0, os.path.dirname(os.path.realpath(path)) if path not in ("", "-") else "")


def decoded(content):
    if b"\0" in content:
        line = content[:content.index(b"\0")].count(b"\n") + 1
        raise ValueError(f"there is a NUL character in line {line}")
    encoding, _ = tokenize.detect_encoding(io.BytesIO(content).readline)
    return content.decode(encoding)


def read_script(path):
    """The script's text and None, or None and why there is none."""
    try:
        if path == "-":
            return decoded(sys.stdin.buffer.read()), None
        with open(path, "rb") as file:
            return decoded(file.read()), None
    except OSError as error:
        return None, error.strerror
    except (LookupError, SyntaxError, ValueError) as error:
        return None, str(error)


def catch_interrupts(taken, script_file, commands_run, is_prompt):
    """Ctrl-C raises KeyboardInterrupt. In a set's own script, where the selection would catch
    that, it ends the process, but for a prompt, which goes on."""

    def on_interrupt(_, frame):
        taken()
        if not is_prompt and (commands_run() or is_within_script(frame)):
            leave()
        raise KeyboardInterrupt

    def is_within_script(frame):
        while frame and frame.f_code.co_filename != script_file:
            frame = frame.f_back
        return frame is not None

    def leave():
        try:
            flush()
        finally:
            os._exit(130)

    if signal.getsignal(signal.SIGINT) is not signal.SIG_IGN:
        signal.signal(signal.SIGINT, on_interrupt)


def code_of(end):
    """The exit code that Python would make of a SystemExit."""
    if end.code is None:
        return 0
    if isinstance(end.code, int):
        return end.code & 0xFF if -(2**63) <= end.code < 2**63 else 0xFF
    tell_text(end.code)
    return 1


def tell_text(value):
    """Brings it to standard error, also where the script left no stream in its place that works."""
    for stream in getattr(sys, "stderr", None), getattr(sys, "__stderr__", None):
        try:
            stream.write(f"{value!s}\n")
            return
        except BaseException:
            pass  # Nor does Python tell what has no text.


def tell_trace():
    try:
        tell_text(traceback.format_exc().rstrip("\n"))
    except BaseException:
        pass


def tell(error):
    """Brings an error to the hook for it, without the frames that called the script."""
    trace = error.__traceback__
    while trace and trace.tb_frame.f_globals is globals():
        trace = trace.tb_next
    try:
        sys.excepthook(type(error), error.with_traceback(trace), trace)
    except BaseException:
        tell_trace()


def guarded(work):
    """The exit code of what runs, and whether it ended by its own will."""
    try:
        work()
    except SystemExit as end:
        return code_of(end), True
    except KeyboardInterrupt as error:
        tell(error)
        return 130, False
    except BaseException as error:
        tell(error)
        return 1, False
    return 0, True


def run_text(text, path, names):
    name = "<stdin>" if path == "-" else path
    if path != "-":
        names["__file__"] = path

    def compiled():
        return compile(text, name, "exec", dont_inherit=True)

    return guarded(lambda: exec(compiled(), names))


def complete_by_tab(names):
    try:
        import readline
        import rlcompleter
    except ImportError:
        return
    readline.set_completer(rlcompleter.Completer(names).complete)
    is_other = "libedit" in (readline.__doc__ or "")
    readline.parse_and_bind("bind ^I rl_complete" if is_other else "tab: complete")


def run_prompt(banner, names):
    complete_by_tab(names)
    console = code.InteractiveConsole(names)
    return guarded(lambda: console.interact(banner=banner, exitmsg=""))


def flush_files():
    """Files that a script left open keep what it wrote, as with Python."""
    for kind in io.TextIOWrapper, io.BufferedWriter, io.BufferedRandom:
        for file in [one for one in gc.get_objects() if issubclass(type(one), kind)]:
            if len(sys._current_frames()) > 1:
                flush_beside(file)
            else:
                flush_file(file)


def flush_file(file):
    try:
        file.flush()
    except KeyboardInterrupt:
        raise
    except BaseException:
        pass  # Closed; or full, which Python does not tell either.


def flush_beside(file):
    """A daemon may be writing to it, and keep everybody else from it until a pipe is read."""
    flushing = threading.Thread(target=flush_file, args=(file,), daemon=True)
    flushing.start()
    flushing.join(1)


def finish():
    """What Python does at its end: waits for threads, calls what is registered for the exit."""
    threading._shutdown()
    atexit._run_exitfuncs()
    flush_files()


def ended(result):
    """The result of all, threads and exit functions included."""
    last = guarded(finish)
    return result if last == (0, True) or last[0] == 1 else last


def is_open(stream):
    """Whether there is something to flush; a script may put anything into a stream's place."""
    try:
        return hasattr(stream, "flush") and not getattr(stream, "closed", False)
    except ValueError:
        return False  # What is below it was taken away.


def reason_of(error):
    try:
        return str(getattr(error, "strerror", None) or error) or type(error).__name__
    except BaseException:
        return type(error).__name__


def flush_fault(stream):
    """Why a stream could not take everything, or None."""
    try:
        if is_open(stream):
            stream.flush()
    except KeyboardInterrupt:
        raise
    except BaseException as error:
        return reason_of(error)
    return None


def flush():
    """Why standard output could not take everything, or None."""
    own = flush_fault(getattr(sys, "stdout", None))
    return flush_fault(getattr(sys, "__stdout__", None)) or own
