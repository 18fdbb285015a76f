"""Kills the server under the operators, and starts it again."""

import random
import threading
import time
import traceback

from postgres_server import PostgresServer

LONGEST_SAVE_SECONDS = 0.3


class Killer:
    """Kills the server while the operators save, and starts it again.

    Everybody types, then everybody saves at once and is met by the kill, tries until it is done,
    and types again.
    """

    def __init__(self, kills, operators, seed):
        self.kills = kills
        self.done = 0
        self.chance = random.Random(seed)
        self.server = PostgresServer() if kills else None
        self.starting = threading.Barrier(operators)
        self.saving = threading.Barrier(operators + 1)
        self.typing = threading.Barrier(operators + 1)
        self.failure = None

    def let_start(self):
        self.starting.wait()

    def let_save(self):
        if self.server:
            self.saving.wait()

    def let_type(self):
        if self.server:
            self.typing.wait()

    def abort(self):
        self.starting.abort()
        self.saving.abort()
        self.typing.abort()

    def run(self):
        try:
            for _ in range(self.kills):
                self.saving.wait()
                time.sleep(self.chance.uniform(0, LONGEST_SAVE_SECONDS))
                self.server.kill()
                time.sleep(self.chance.uniform(0, LONGEST_SAVE_SECONDS))
                self.server.start()
                self.done += 1
                self.typing.wait()
        except Exception:  # told by the main thread
            self.abort()
            self.failure = traceback.format_exc()
