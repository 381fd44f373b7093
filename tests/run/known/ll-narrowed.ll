; Under -ll two casts to one width over a 64-bit value print as one, and that one without .low.
@x = global i64 513
define i32 @main() {
entry:
  %0 = load i64, i64* @x
  %conv = trunc i64 %0 to i8
  %conv1 = zext i8 %conv to i32
  ret i32 %conv1
}
