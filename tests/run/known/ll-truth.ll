; Under -ll an i1 that is extended to 64 bits stays an int, so it can't be an argument of that type.
define i32 @f(i64 %a) {
entry:
  ret i32 3
}
define i32 @main() {
entry:
  %cmp = icmp eq i32 1, 1
  %conv = zext i1 %cmp to i64
  %call = call i32 @f(i64 %conv)
  ret i32 %call
}
