#!/usr/bin/env python3
"""Checks the completion of klxctl as somebody meets it who presses the tabulator key.

usage: check_completion.py SHELL FOLDER-OF-COMPLETIONS FOLDER-OF-KLXCTL

Starts the shell at a terminal of its own, types the beginning of a line, presses the key and reads
the line that the shell then has. Ends with 77 when the shell is not installed, which continuous
integration takes for a failure.
"""

import os
import pty
import re
import select
import shutil
import signal
import subprocess
import sys
import tempfile
import time

PATIENCE = 60

# What is typed, and the line after the key. What several could follow grows to where they part.
CASES = {
    "bash": [
        ("klxctl du", "klxctl dump "),
        ("klxctl fms g", "klxctl fms get "),
        ("klxctl dump --fo", "klxctl dump --format "),
        ("klxctl dump --format x", "klxctl dump --format xml "),
        ("klxctl dump --format=x", "klxctl dump --format=xml "),
        ("klxctl get /Picture/Backl", "klxctl get /Picture/Backlight "),
        ("klxctl get /Pic", "klxctl get /Picture/"),
        ("klxctl get /Picture/Contr", "klxctl get /Picture/Contrast"),
        ("klxctl get /Picture/HDR", r"klxctl get /Picture/HDR+\ Mode "),
        ("klxctl get /General\\ \\&\\ Privacy/Par",
         r"klxctl get /General\ \&\ Privacy/Parental\ Settings/"),
        ("klxctl get \"/General & Privacy/System",
         "klxctl get \"/General & Privacy/System Manager/Language\" "),
        ("klxctl get '/General & Privacy/System",
         "klxctl get '/General & Privacy/System Manager/Language' "),
        ("klxctl set /General/Ext",
         r"klxctl set /General/External\ Device\ Manager/Cordix+\(HDMI-CEC\) "),
        (r"klxctl get /General/External\ Device\ Manager/Cordix+\(HD",
         r"klxctl get /General/External\ Device\ Manager/Cordix+\(HDMI-CEC\) "),
        ("klxctl get \"/General/External Device Manager/Cordix+(HD",
         "klxctl get \"/General/External Device Manager/Cordix+(HDMI-CEC)\" "),
        (r"klxctl get /Connection/Network/Expert\ Settings/Pow",
         r"klxctl get /Connection/Network/Expert\ Settings/Power\ On\ with\ \ Mobile "),
        ("klxctl dump Picture/Backl", "klxctl dump Picture/Backlight "),
        ("klxctl dump -o note", "klxctl dump -o notes.txt "),
        ("klxctl get /etc/host", "klxctl get /etc/host"),
        ("klxctl get '$(touch carried-out)' /Picture/Backl",
         "klxctl get '$(touch carried-out)' /Picture/Backlight "),
        ("klxctl get $(touch carried-out) /Picture/Backl", None),
    ],
}
CASES["zsh"] = [case for case in CASES["bash"] if case[0] != "klxctl get $(touch carried-out) "
                "/Picture/Backl"]

# A key of the test's own has the shell print the line that it has.
PREPARATION = {
    "bash": """PS1= PS2=
bind 'set bell-style none'
bind 'set completion-query-items 0'
bind 'set page-completions off'
. "$COMPLETIONS/klxctl.bash"
show() { printf '\\nLINE<%s>\\n' "$READLINE_LINE"; READLINE_LINE=; READLINE_POINT=0; }
bind -x '"\\C-g": show'
printf 'REA''DY\\n'
""",
    "zsh": """PS1= PS2= RPS1=
unsetopt beep prompt_sp prompt_cr
fpath=("$COMPLETIONS" $fpath)
autoload -Uz compinit && compinit -D -u
LISTMAX=1000
show() { printf '\\nLINE<%s>\\n' "$BUFFER"; BUFFER= }
zle -N show
bindkey '^G' show
bindkey '^I' complete-word
unsetopt auto_menu menu_complete
printf 'REA''DY\\n'
""",
}

ARGUMENTS = {"bash": ["--norc", "--noprofile", "-i"], "zsh": ["-f", "-i"]}


class Terminal:
    """A shell at a terminal."""

    def __init__(self, shell, folder, environment):
        self.process, self.descriptor = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            os.execvpe(shell, [shell, *ARGUMENTS[shell]], environment)
        self.type(PREPARATION[shell])
        self.await_match(r"READY\r?\n")

    def type(self, text):
        # A terminal's input queue is short.
        for line in text.splitlines(keepends=True):
            os.write(self.descriptor, line.encode())

    def await_match(self, pattern):
        """What the shell prints, up to the pattern; leaves nothing unread that came before it."""
        seen = ""
        end = time.monotonic() + PATIENCE
        while time.monotonic() < end:
            found = re.search(pattern, seen, re.DOTALL)
            if found:
                return found
            if select.select([self.descriptor], [], [], 0.1)[0]:
                seen += os.read(self.descriptor, 65536).decode(errors="replace")
        raise TimeoutError(f"the shell did not print {pattern!r} but {seen!r}")

    def line_after_tab(self, typed):
        self.type(typed + "\t\x07")
        return self.await_match(r"LINE<([^\r\n]*)>\r?\n").group(1)

    def close(self):
        os.kill(self.process, signal.SIGKILL)
        os.waitpid(self.process, 0)
        os.close(self.descriptor)


def faults_of(shell, folder, environment):
    terminal = Terminal(shell, folder, environment)
    try:
        for typed, wanted in CASES[shell]:
            line = terminal.line_after_tab(typed)
            if wanted is not None and line != wanted:
                yield f"{shell}: {typed!r} became {line!r}, not {wanted!r}"
    finally:
        terminal.close()
    if os.path.exists(os.path.join(folder, "carried-out")):
        yield f"{shell}: the key carried out a command that was only typed"


def check(shell, completions, tool_folder):
    name = {"bash": "klxctl.bash", "zsh": "_klxctl"}[shell]
    subprocess.run([shell, "-n", os.path.join(completions, name)], check=True)
    with tempfile.TemporaryDirectory() as folder:
        open(os.path.join(folder, "notes.txt"), "w").close()
        environment = dict(os.environ, COMPLETIONS=completions, TERM="dumb", HOME=folder,
                           PATH=tool_folder + ":" + os.environ["PATH"], HISTFILE="")
        return list(faults_of(shell, folder, environment))


def main(arguments):
    if len(arguments) != 3:
        sys.exit(__doc__)
    if shutil.which(arguments[0]) is None:
        print(f"{arguments[0]} is not installed")
        return 1 if os.environ.get("CI") == "true" else 77
    faults = check(*arguments)
    print("\n".join(faults) or f"{len(CASES[arguments[0]])} lines are completed")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main(sys.argv[1:]))
