a
bb