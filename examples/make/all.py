#!/usr/bin/env python3
"""Writes every song's JSON into the examples folder."""

from importlib import import_module
from pathlib import Path

SONGS = ["greensleeves", "fiddle_set", "back_porch_blues", "amazing_grace", "mountain_king",
         "seven_gestures", "rising_sun"]

if __name__ == "__main__":
    for name in SONGS:
        import_module(name).song.Write(Path(__file__).parent.parent / f"{name.replace('_', '-')}.json")
