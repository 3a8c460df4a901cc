"""SEI messages as lists of elements: a model of the syntax, and streams made up to compare with."""
