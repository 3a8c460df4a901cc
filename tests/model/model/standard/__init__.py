"""The standard's own reading of the structures, into the records of the package above. Every
`parse` starts afresh. What it leaves in the record when it fails is not said by anyone, except that
`valid` is false."""
