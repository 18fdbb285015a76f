"""What the tests that kill the program have in common.

When a kill hits is chance, and many of them find what nobody thought of. Both outcomes of a kill,
with and without what was being done, are brought about besides: a limit on the size of files ends
a program in the middle of its writing, always at the same byte.
"""

import argparse
import random
import resource
import time

TIMEOUT_SECONDS = 120


class Broken(Exception):
    """What a killed program left is not what was promised."""


def parse_arguments(description, kills, more=(), with_account=True):
    """The arguments, with `chance` for what is left to it. `more`: further numbers with defaults."""
    parser = argparse.ArgumentParser(description=description,
                                     formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--program", required=True, help="the program kelvane")
    if with_account:
        parser.add_argument("--tool", required=True, help="the program kelvane_account_tool")
    parser.add_argument("--kills", type=int, default=kills, help="at random moments")
    parser.add_argument("--seed", type=int, default=random.randrange(1 << 32))
    for name, default in more:
        parser.add_argument(name, type=int, default=default)
    arguments = parser.parse_args()
    print(f"seed {arguments.seed}", flush=True)
    arguments.chance = random.Random(arguments.seed)
    return arguments


def kill_at_size(process, size):
    """The process ends by a signal when it writes beyond so many bytes of any file."""
    resource.prlimit(process.pid, resource.RLIMIT_FSIZE, (size, size))
    # What it was doing is nothing to be looked at.
    resource.prlimit(process.pid, resource.RLIMIT_CORE, (0, 0))


def wait_until(is_so, what):
    """Asks again and again; Broken says that `what` did not come about."""
    deadline = time.monotonic() + TIMEOUT_SECONDS
    while not is_so():
        if time.monotonic() > deadline:
            raise Broken(f"{what} does not happen")
        time.sleep(0.005)


def shown(outcomes):
    return ", ".join(f"{name} {count}" for name, count in sorted(outcomes.items()))
