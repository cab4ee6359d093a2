// Belongs to the target whose precompiled headers the tests share.
