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
  %cmp1 = icmp slt i32 %0, 100
  br i1 %cmp1, label %if.then, label %if.end
if.then:
  ret i32 %0
if.end:
  %add = add i32 %0, 1
  store i32 %add, i32* @n
  br label %for.cond
}
