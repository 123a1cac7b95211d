-- A script that fails names its line, keeps what it has printed, and ends with 1.
-- status: 1
-- out: before
-- err: tessimo: {script}:7: Subscript out of range
print("before")

store.toolradius[100] = 0.5
print("never")
