"""Scenes of the order bar on the screen. Each has play(stage); an assertion or a wait in vain fails it."""
