; ?: with a result of type i1 is taken for a chain of && and ||, whose blocks have no common target: refused with a message.
@a = global i32 1
define i32 @main() {
entry:
  %0 = load i32, i32* @a
  %tobool = icmp ne i32 %0, 0
  br i1 %tobool, label %cond.true, label %cond.false
cond.true:
  %cmp = icmp slt i32 %0, 3
  br label %cond.end
cond.false:
  %cmp1 = icmp slt i32 %0, 4
  br label %cond.end
cond.end:
  %cond = phi i1 [ %cmp, %cond.true ], [ %cmp1, %cond.false ]
  %conv = zext i1 %cond to i32
  ret i32 %conv
}
