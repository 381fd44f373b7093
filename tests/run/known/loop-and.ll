; for (;;) is lost if its body begins with && or ||: the block at its head ends in a branch of a chain then.
@n = global i32 0
define i32 @main() {
entry:
  br label %for.cond
for.cond:
  %0 = load i32, i32* @n
  %cmp = icmp sgt i32 %0, 10
  br i1 %cmp, label %land.lhs.true, label %if.end
land.lhs.true:
  %1 = load i32, i32* @n
  %cmp1 = icmp slt i32 %1, 100
  br i1 %cmp1, label %if.then, label %if.end
if.then:
  %2 = load i32, i32* @n
  ret i32 %2
if.end:
  %3 = load i32, i32* @n
  %add = add i32 %3, 1
  store i32 %add, i32* @n
  br label %for.cond
}
