"""A second reading of every syntax structure, to hold the library against."""
