"""What the program holds, compared where like stands beside like: in the same player's menu, in
Italian, and after the same windows, since the toolkit keeps the pictures of those seen last for half
a minute, pointers for good once they were shown, and the program parts of figures up to a measure
and gives its free memory back soon after a window was left."""
import collections
import time

from desktop import Failure
from quick import descriptors, memory

PLAYER = "Anna"
GIVEN_BACK = 1.0  # seconds after the last window was left, on a busy machine too
MAY_GROW = 2048  # kB
MET_FIRST = 2  # of a kind, in a short run: what was needed for the first time

Held = collections.namedtuple("Held", "memory descriptors resources")


def held(pupil):
    """In that menu, just left for it."""
    pid = pupil.process.pid
    looks = []
    end = time.monotonic() + GIVEN_BACK
    while time.monotonic() < end:
        time.sleep(GIVEN_BACK / 10)
        looks.append(memory(pid))
    return Held(min(looks), descriptors(pid), pupil.hands.resources(pid))


def told(now):
    return (f"{now.memory} kB of its own, {now.descriptors} descriptors, "
            f"{sum(now.resources.values())} in the display")


def check_growth(first, last, whole):
    """A short run goes on meeting things for the first time: memory is only told, and of the others
    there may be a few more. A leak at each visit makes more."""
    if whole and last.memory - first.memory > MAY_GROW:
        raise Failure(f"memory grew from {first.memory} to {last.memory} kB")
    allowed = 0 if whole else MET_FIRST
    gained = {kind: count - first.resources.get(kind, 0)
              for kind, count in last.resources.items()}
    gained["descriptors"] = last.descriptors - first.descriptors
    more = {kind: count for kind, count in gained.items() if count > allowed}
    if more:
        raise Failure(f"more descriptors, or more kept in the display: {more}")
