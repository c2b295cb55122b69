A sample of a file that a game includes.
