"""The server that scripts/with-postgres started, killed and started again."""

import os
import re
import shlex
import signal
import subprocess
import time
from pathlib import Path

PATIENCE_SECONDS = 60


class PostgresServer:
    def __init__(self):
        self.data = Path(os.environ["KELVANE_TEST_POSTGRES_FOLDER"]) / "data"
        # The server's own record of how it was started.
        self.command = shlex.split((self.data / "postmaster.opts").read_text())
        self.port = self.command[self.command.index("-p") + 1]
        self.process = None

    def first(self):
        """The process that all others of the server come from."""
        return int((self.data / "postmaster.pid").read_text().split("\n", 1)[0])

    def processes(self):
        """The server's, its sessions' included."""
        first = self.first()
        found = [first]
        for status in Path("/proc").glob("[0-9]*/stat"):
            try:
                parent = int(status.read_text().rpartition(")")[2].split()[1])
            except OSError:
                continue
            if parent == first:
                found.append(int(status.parent.name))
        return found

    def kill(self):
        """Without any chance to tidy up."""
        # What a server begins behind our back keeps the next one from starting.
        os.kill(self.first(), signal.SIGSTOP)
        killed = self.processes()
        for process in killed:
            try:
                os.kill(process, signal.SIGKILL)
            except ProcessLookupError:
                pass
        if self.process:
            self.process.wait()
        deadline = time.monotonic() + PATIENCE_SECONDS
        while any(lives(process) for process in killed):
            if time.monotonic() > deadline:
                raise TimeoutError("the server does not die")
            time.sleep(0.01)

    def start(self):
        """Returns when it takes connections."""
        owner = self.data.stat()
        self.process = subprocess.Popen(self.command, user=owner.st_uid, group=owner.st_gid,
                                        extra_groups=[], cwd=self.data, stdin=subprocess.DEVNULL,
                                        stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        ready = [str(Path(self.command[0]).parent / "pg_isready"), "-q", "-h", "127.0.0.1", "-p",
                 self.port]
        deadline = time.monotonic() + PATIENCE_SECONDS
        while subprocess.run(ready, check=False).returncode != 0:
            if time.monotonic() > deadline or self.process.poll() is not None:
                raise TimeoutError("the server does not start")
            time.sleep(0.02)

    def waiting(self):
        """How many sessions wait for others' locks."""
        place = os.environ["KELVANE_TEST_POSTGRES"]
        password = re.search(r";PWD=([^;]*)", place).group(1)
        asked = [str(Path(self.command[0]).parent / "psql"), "-qtAX", "-h", "127.0.0.1", "-p", self.port,
                 "-U", "kelvane", "-d", "postgres", "-c",
                 "select count(*) from pg_stat_activity where wait_event_type = 'Lock'"]
        return int(subprocess.run(asked, check=True, capture_output=True, encoding="utf-8",
                                  env={**os.environ, "PGPASSWORD": password}).stdout)

    def stop(self):
        """Ends what start() started; the first one is not ours."""
        if self.process and self.process.poll() is None:
            self.process.send_signal(signal.SIGINT)
            self.process.wait()


def lives(process):
    try:
        return Path(f"/proc/{process}/stat").read_text().rpartition(")")[2].split()[0] != "Z"
    except OSError:
        return False
