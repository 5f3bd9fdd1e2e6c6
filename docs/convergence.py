#!/usr/bin/env python3
"""A small model of a live session: who sees what, whatever the order in which things happen.

It plays every interleaving of two selections on three machines, every moment at which somebody may
join, and every way in which the broker may be lost to one of them, and tells the cases in which the
machines do not end alike. There must be none. The exit code is 1 if there is one.

  convergence.py             the rules as they are
  convergence.py --without R one rule left out: order, state, sequence or replay; now there are some

A scene is two variants, V and W, with three states each, and a set that holds both.
"""

import argparse
import itertools
from collections import namedtuple

LAST = 2
TARGETS = {"V": ("V",), "W": ("W",), "set": ("V", "W")}
SELECTIONS = list(itertools.product(TARGETS, ("next", 0, 2)))

# before: the states of the sender's variants when it made the command, as pairs.
Command = namedtuple("Command", "sender target state before")


def stepped(present, state):
    return min(present + 1, LAST) if state == "next" else state


def make(sender, selection, scene, rules):
    target, state = selection
    before = tuple((name, scene[name]) for name in TARGETS[target]) if rules.state else ()
    return Command(sender, target, state, before)


def run(command, scene):
    """What a machine does with a command: first the sender's states, then the new ones."""
    result = {**scene, **dict(command.before)}
    for name in TARGETS[command.target]:
        result[name] = stepped(result[name], command.state)
    return result


def replay(commands, scene):
    for command in commands:
        scene = run(command, scene)
    return scene


def frozen(scene):
    return tuple(sorted(scene.items()))


# Two selections, made on machines 0 and 1 and seen on 2 as well.


def moves(made, log, seen, rules):
    """What can happen next: a user selects, the broker takes a command, a machine runs one."""
    for user in (0, 1):
        if made[user] is None:
            yield "make", user
        elif made[user] not in log:
            yield "publish", user
    for machine in range(3):
        if seen[machine] < len(log):
            yield "run", machine
    if not rules.order:
        for machine in range(3):
            if seen[machine] + 1 < len(log):
                yield "overtake", machine


def two_selections(selections, start, rules):
    """Yields how the three machines end, once for every interleaving that differs."""
    stack = [((None, None), (), (0, 0, 0), (frozen(start),) * 3)]
    known = set(stack)
    while stack:
        made, log, seen, scenes = stack.pop()
        following = []
        for what, who in moves(made, log, seen, rules):
            made2, log2, seen2, scenes2 = list(made), list(log), list(seen), list(scenes)
            if what == "make":
                made2[who] = make(who, selections[who], dict(scenes[who]), rules)
            elif what == "publish":
                log2.append(made[who])
            elif what == "run":
                scenes2[who] = frozen(run(log[seen[who]], dict(scenes[who])))
                seen2[who] += 1
            else:
                scenes2[who] = frozen(replay(log[seen[who]:][::-1], dict(scenes[who])))
                seen2[who] = len(log)
            following.append((tuple(made2), tuple(log2), tuple(seen2), tuple(scenes2)))
        if not following:
            yield [dict(scene) for scene in scenes], log
        stack += [state for state in following if state not in known]
        known.update(following)


def check_two_selections(rules):
    cases = faults = 0
    for selections in itertools.product(SELECTIONS, repeat=2):
        for v, w in itertools.product(range(LAST + 1), repeat=2):
            for scenes, _ in two_selections(selections, {"V": v, "W": w}, rules):
                cases += 1
                faults += any(scene != scenes[0] for scene in scenes)
    return cases, faults


def check_two_steps(rules):
    """Two steps at the same moment are one step on; one after the other they are two."""
    ends = {scenes[2]["V"] for scenes, log in two_selections(
        (("V", "next"), ("V", "next")), {"V": 0, "W": 0}, rules)
        if not rules.state or log[0].before == log[1].before}
    return 1, int(ends != {1})


# Somebody joins.


def logs(length, rules):
    """Every log of that length, of machines that had run all of it or nothing when they selected."""
    for selections in itertools.product(SELECTIONS, repeat=length):
        for late in itertools.product((False, True), repeat=length):
            log, start = [], {"V": 0, "W": 0}
            scene = start
            for selection, is_late in zip(selections, late):
                log.append(make(0, selection, start if is_late else scene, rules))
                scene = run(log[-1], scene)
            yield log, start, scene


def last_of_each(log, rules):
    """What the broker keeps for those who come later, in its order."""
    last = {command.target: index for index, command in enumerate(log)}
    indices = sorted(last.values()) if rules.sequence else [last[key] for key in sorted(last)]
    return [log[index] for index in indices]


def check_late_joiner(rules):
    cases = faults = 0
    for log, start, end in logs(3, rules):
        for moment in range(len(log) + 1):
            joined = replay(last_of_each(log[:moment], rules) + log[moment:], start)
            cases += 1
            faults += joined != end
    return cases, faults


# The broker is lost to machine 0, which works on by itself.


def check_alone(rules):
    cases = faults = 0
    start = {"V": 0, "W": 0}
    for missed_count, alone_count in itertools.product(range(3), repeat=2):
        for missed in itertools.product(SELECTIONS, repeat=missed_count):
            for alone in itertools.product(SELECTIONS, repeat=alone_count):
                mine, theirs = came_back(missed, alone, start, rules)
                cases += 1
                faults += mine != theirs
    return cases, faults


def came_back(missed, alone, start, rules):
    """Machine 0 runs what it missed, then sends what it did alone, and runs that in its place once
    more if something came between."""
    theirs, log = start, []
    for selection in missed:
        log.append(make(1, selection, theirs, rules))
        theirs = run(log[-1], theirs)
    mine, kept = start, []
    for selection in alone:
        kept.append(make(0, selection, mine, rules))
        mine = run(kept[-1], mine)
    mine = replay(log, mine)
    if missed and rules.replay:
        mine = replay(kept, mine)
    return mine, replay(kept, theirs)


CHECKS = {
    "two selections, all interleavings": check_two_selections,
    "two steps at the same moment": check_two_steps,
    "joining at any moment": check_late_joiner,
    "the broker lost and found": check_alone,
}


def main():
    names = ("order", "state", "sequence", "replay")
    parser = argparse.ArgumentParser(description="Plays a live session in every order.")
    parser.add_argument("--without", choices=names, help="leave out one rule")
    without = parser.parse_args().without
    rules = argparse.Namespace(**{name: name != without for name in names})
    total = 0
    for title, check in CHECKS.items():
        cases, faults = check(rules)
        print(f"{title}: {cases} cases, {faults} do not end alike")
        total += faults
    return 1 if total else 0


if __name__ == "__main__":
    raise SystemExit(main())
