"""Runs lines through `ovaline run` of this machine's build and of a Windows build."""
import json
import os
import pathlib
import subprocess
import tempfile


def answers(command, lines):
    """What the program answers to the lines, in the order of the lines."""
    text = "".join(json.dumps(line, ensure_ascii=False) + "\n" for line in lines)
    with tempfile.TemporaryDirectory() as folder:
        environment = dict(os.environ, OVALINE_REGISTRY=str(pathlib.Path(folder) / "registry.reg"), TZ="UTC")
        done = subprocess.run(command + ["run"], input=text.encode(), capture_output=True, timeout=500, check=False,
                              cwd=folder, env=environment)
    out = [json.loads(line) for line in done.stdout.decode().splitlines()]
    if len(out) != len(lines):
        raise SystemExit(f"{command} answered {len(out)} of {len(lines)} lines\n{done.stderr.decode()}")
    return out


def both(arguments, lines):
    """The answers of both programs; the arguments are this machine's program, the Windows program and its emulator."""
    native, program, *emulator = arguments
    native, program = (str(pathlib.Path(file).resolve()) for file in (native, program))
    return answers([native], lines), answers([*emulator, program], lines)
