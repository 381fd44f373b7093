; ModuleID = 'tasks.c'
source_filename = "tasks.c"
target datalayout = "e-m:e-p:16:16-i32:16-i64:16-f32:16-f64:16-a:8-n8:16-S16"
target triple = "msp430"

declare { %union.payload*, %struct.task* } @llvm.dbg.order()
%class.task = type opaque
%struct.task = type { %struct.task*, i32, void (%struct.task*)*, %union.payload, i16 }
%union.payload = type { i32 }

@queue = internal global %struct.task* null, align 2
@now = internal global i32 0, align 2
@housekeeping = internal global { %struct.task*, i32, void (%struct.task*)*, %union.payload, i8, i8 } { %struct.task* null, i32 0, void (%struct.task*)* @sum_bytes, %union.payload { i32 16909060 }, i8 1, i8 0 }, align 2

; Function Attrs: noinline nounwind optnone
define void @schedule(%struct.task* %task, i32 %delay) #0 {
entry:
  %task.addr = alloca %struct.task*, align 2
  %delay.addr = alloca i32, align 2
  %place = alloca %struct.task**, align 2
  store %struct.task* %task, %struct.task** %task.addr, align 2
  store i32 %delay, i32* %delay.addr, align 2
  store %struct.task** @queue, %struct.task*** %place, align 2
  %0 = load i32, i32* @now, align 2
  %1 = load i32, i32* %delay.addr, align 2
  %add = add i32 %0, %1
  %2 = load %struct.task*, %struct.task** %task.addr, align 2
  %due = getelementptr inbounds %struct.task, %struct.task* %2, i32 0, i32 1
  store i32 %add, i32* %due, align 2
  br label %while.cond

while.cond:
  %3 = load %struct.task**, %struct.task*** %place, align 2
  %4 = load %struct.task*, %struct.task** %3, align 2
  %tobool = icmp ne %struct.task* %4, null
  br i1 %tobool, label %land.rhs, label %land.end8

land.rhs:
  %5 = load %struct.task**, %struct.task*** %place, align 2
  %6 = load %struct.task*, %struct.task** %5, align 2
  %cast = bitcast %struct.task* %6 to %struct.task*
  %due1 = getelementptr inbounds %struct.task, %struct.task* %cast, i32 0, i32 1
  %7 = load i32, i32* %due1, align 2
  %8 = load %struct.task*, %struct.task** %task.addr, align 2
  %due2 = getelementptr inbounds %struct.task, %struct.task* %8, i32 0, i32 1
  %9 = load i32, i32* %due2, align 2
  %cmp = icmp ult i32 %7, %9
  br i1 %cmp, label %lor.end, label %lor.rhs

lor.rhs:
  %10 = load %struct.task**, %struct.task*** %place, align 2
  %11 = load %struct.task*, %struct.task** %10, align 2
  %cast.1 = bitcast %struct.task* %11 to %struct.task*
  %due3 = getelementptr inbounds %struct.task, %struct.task* %cast.1, i32 0, i32 1
  %12 = load i32, i32* %due3, align 2
  %13 = load %struct.task*, %struct.task** %task.addr, align 2
  %due4 = getelementptr inbounds %struct.task, %struct.task* %13, i32 0, i32 1
  %14 = load i32, i32* %due4, align 2
  %cmp5 = icmp eq i32 %12, %14
  br i1 %cmp5, label %land.rhs6, label %land.end

land.rhs6:
  %15 = load %struct.task*, %struct.task** %task.addr, align 2
  %urgent = getelementptr inbounds %struct.task, %struct.task* %15, i32 0, i32 4
  %bf.load = load i16, i16* %urgent, align 2
  %bf.lshr = lshr i16 %bf.load, 1
  %bf.clear = and i16 %bf.lshr, 1
  %tobool7 = icmp ne i16 %bf.clear, 0
  %lnot = xor i1 %tobool7, true
  br label %land.end

land.end:
  %16 = phi i1 [ false, %lor.rhs ], [ %lnot, %land.rhs6 ]
  br label %lor.end

lor.end:
  %17 = phi i1 [ true, %land.rhs ], [ %16, %land.end ]
  br label %land.end8

land.end8:
  %18 = phi i1 [ false, %while.cond ], [ %17, %lor.end ]
  br i1 %18, label %while.body, label %while.end

while.body:
  %19 = load %struct.task**, %struct.task*** %place, align 2
  %20 = load %struct.task*, %struct.task** %19, align 2
  %cast.2 = bitcast %struct.task* %20 to %struct.task*
  %next = getelementptr inbounds %struct.task, %struct.task* %cast.2, i32 0, i32 0
  store %struct.task** %next, %struct.task*** %place, align 2
  br label %while.cond

while.end:
  %21 = load %struct.task**, %struct.task*** %place, align 2
  %22 = load %struct.task*, %struct.task** %21, align 2
  %23 = load %struct.task*, %struct.task** %task.addr, align 2
  %next9 = getelementptr inbounds %struct.task, %struct.task* %23, i32 0, i32 0
  store %struct.task* %22, %struct.task** %next9, align 2
  %24 = load %struct.task*, %struct.task** %task.addr, align 2
  %25 = load %struct.task**, %struct.task*** %place, align 2
  store %struct.task* %24, %struct.task** %25, align 2
  ret void
}

; Function Attrs: noinline nounwind optnone
define i16 @cancel(%struct.task* %task) #0 {
entry:
  %retval = alloca i16, align 2
  %task.addr = alloca %struct.task*, align 2
  %place = alloca %struct.task**, align 2
  store %struct.task* %task, %struct.task** %task.addr, align 2
  store %struct.task** @queue, %struct.task*** %place, align 2
  br label %for.cond

for.cond:
  %0 = load %struct.task**, %struct.task*** %place, align 2
  %1 = load %struct.task*, %struct.task** %0, align 2
  %tobool = icmp ne %struct.task* %1, null
  br i1 %tobool, label %for.body, label %for.end

for.body:
  %2 = load %struct.task**, %struct.task*** %place, align 2
  %3 = load %struct.task*, %struct.task** %2, align 2
  %4 = load %struct.task*, %struct.task** %task.addr, align 2
  %cmp = icmp eq %struct.task* %3, %4
  br i1 %cmp, label %if.then, label %if.end

if.then:
  %5 = load %struct.task*, %struct.task** %task.addr, align 2
  %next = getelementptr inbounds %struct.task, %struct.task* %5, i32 0, i32 0
  %6 = load %struct.task*, %struct.task** %next, align 2
  %7 = load %struct.task**, %struct.task*** %place, align 2
  store %struct.task* %6, %struct.task** %7, align 2
  store i16 1, i16* %retval, align 2
  br label %return

if.end:
  br label %for.inc

for.inc:
  %8 = load %struct.task**, %struct.task*** %place, align 2
  %9 = load %struct.task*, %struct.task** %8, align 2
  %cast = bitcast %struct.task* %9 to %struct.task*
  %next1 = getelementptr inbounds %struct.task, %struct.task* %cast, i32 0, i32 0
  store %struct.task** %next1, %struct.task*** %place, align 2
  br label %for.cond

for.end:
  store i16 0, i16* %retval, align 2
  br label %return

return:
  %10 = load i16, i16* %retval, align 2
  ret i16 %10
}

; Function Attrs: noinline nounwind optnone
define i16 @run_until(i32 %time) #0 {
entry:
  %time.addr = alloca i32, align 2
  %count = alloca i16, align 2
  %task = alloca %struct.task*, align 2
  store i32 %time, i32* %time.addr, align 2
  store i16 0, i16* %count, align 2
  br label %while.cond

while.cond:
  %0 = load %struct.task*, %struct.task** @queue, align 2
  %tobool = icmp ne %struct.task* %0, null
  br i1 %tobool, label %land.rhs, label %land.end

land.rhs:
  %1 = load %struct.task*, %struct.task** @queue, align 2
  %due = getelementptr inbounds %struct.task, %struct.task* %1, i32 0, i32 1
  %2 = load i32, i32* %due, align 2
  %3 = load i32, i32* %time.addr, align 2
  %cmp = icmp ule i32 %2, %3
  br label %land.end

land.end:
  %4 = phi i1 [ false, %while.cond ], [ %cmp, %land.rhs ]
  br i1 %4, label %while.body, label %while.end

while.body:
  %5 = load %struct.task*, %struct.task** @queue, align 2
  store %struct.task* %5, %struct.task** %task, align 2
  %6 = load %struct.task*, %struct.task** %task, align 2
  %next = getelementptr inbounds %struct.task, %struct.task* %6, i32 0, i32 0
  %7 = load %struct.task*, %struct.task** %next, align 2
  store %struct.task* %7, %struct.task** @queue, align 2
  %8 = load %struct.task*, %struct.task** %task, align 2
  %due1 = getelementptr inbounds %struct.task, %struct.task* %8, i32 0, i32 1
  %9 = load i32, i32* %due1, align 2
  store i32 %9, i32* @now, align 2
  %10 = load %struct.task*, %struct.task** %task, align 2
  %runs = getelementptr inbounds %struct.task, %struct.task* %10, i32 0, i32 4
  %bf.load = load i16, i16* %runs, align 2
  %bf.lshr = lshr i16 %bf.load, 2
  %inc = add i16 %bf.lshr, 1
  %bf.load2 = load i16, i16* %runs, align 2
  %bf.value = and i16 %inc, 16383
  %bf.shl = shl i16 %bf.value, 2
  %bf.clear = and i16 %bf.load2, 3
  %bf.set = or i16 %bf.clear, %bf.shl
  store i16 %bf.set, i16* %runs, align 2
  %11 = load %struct.task*, %struct.task** %task, align 2
  %run = getelementptr inbounds %struct.task, %struct.task* %11, i32 0, i32 2
  %12 = load void (%struct.task*)*, void (%struct.task*)** %run, align 2
  %13 = load %struct.task*, %struct.task** %task, align 2
  call void %12(%struct.task* %13)
  %14 = load %struct.task*, %struct.task** %task, align 2
  %repeat = getelementptr inbounds %struct.task, %struct.task* %14, i32 0, i32 4
  %bf.load3 = load i16, i16* %repeat, align 2
  %bf.clear4 = and i16 %bf.load3, 1
  %tobool5 = icmp ne i16 %bf.clear4, 0
  br i1 %tobool5, label %if.then, label %if.end

if.then:
  %15 = load %struct.task*, %struct.task** %task, align 2
  call void @schedule(%struct.task* %15, i32 100)
  br label %if.end

if.end:
  %16 = load i16, i16* %count, align 2
  %inc6 = add nsw i16 %16, 1
  store i16 %inc6, i16* %count, align 2
  br label %while.cond

while.end:
  %17 = load i32, i32* %time.addr, align 2
  store i32 %17, i32* @now, align 2
  %18 = load i16, i16* %count, align 2
  ret i16 %18
}

; Function Attrs: noinline nounwind optnone
define i32 @demo() #0 {
entry:
  call void @schedule(%struct.task* bitcast ({ %struct.task*, i32, void (%struct.task*)*, %union.payload, i8, i8 }* @housekeeping to %struct.task*), i32 50)
  %call = call i16 @run_until(i32 400)
  %call1 = call i16 @cancel(%struct.task* bitcast ({ %struct.task*, i32, void (%struct.task*)*, %union.payload, i8, i8 }* @housekeeping to %struct.task*))
  %0 = load i32, i32* getelementptr inbounds (%struct.task, %struct.task* bitcast ({ %struct.task*, i32, void (%struct.task*)*, %union.payload, i8, i8 }* @housekeeping to %struct.task*), i32 0, i32 3, i32 0), align 2
  %bf.load = load i16, i16* getelementptr inbounds (%struct.task, %struct.task* bitcast ({ %struct.task*, i32, void (%struct.task*)*, %union.payload, i8, i8 }* @housekeeping to %struct.task*), i32 0, i32 4), align 2
  %bf.lshr = lshr i16 %bf.load, 2
  %conv = zext i16 %bf.lshr to i32
  %add = add nsw i32 %0, %conv
  ret i32 %add
}

; Function Attrs: noinline nounwind optnone
define internal void @sum_bytes(%struct.task* %task) #0 {
entry:
  %task.addr = alloca %struct.task*, align 2
  %sum = alloca i16, align 2
  %i = alloca i16, align 2
  store %struct.task* %task, %struct.task** %task.addr, align 2
  store i16 0, i16* %sum, align 2
  store i16 0, i16* %i, align 2
  br label %for.cond

for.cond:
  %0 = load i16, i16* %i, align 2
  %cmp = icmp slt i16 %0, 4
  br i1 %cmp, label %for.body, label %for.end

for.body:
  %1 = load %struct.task*, %struct.task** %task.addr, align 2
  %payload = getelementptr inbounds %struct.task, %struct.task* %1, i32 0, i32 3
  %bytes = bitcast %union.payload* %payload to [4 x i8]*
  %2 = load i16, i16* %i, align 2
  %arrayidx = getelementptr inbounds [4 x i8], [4 x i8]* %bytes, i16 0, i16 %2
  %3 = load i8, i8* %arrayidx, align 1
  %conv = zext i8 %3 to i16
  %4 = load i16, i16* %sum, align 2
  %add = add nsw i16 %4, %conv
  store i16 %add, i16* %sum, align 2
  br label %for.inc

for.inc:
  %5 = load i16, i16* %i, align 2
  %inc = add nsw i16 %5, 1
  store i16 %inc, i16* %i, align 2
  br label %for.cond

for.end:
  %6 = load i16, i16* %sum, align 2
  %conv1 = sext i16 %6 to i32
  %7 = load %struct.task*, %struct.task** %task.addr, align 2
  %payload2 = getelementptr inbounds %struct.task, %struct.task* %7, i32 0, i32 3
  %number = bitcast %union.payload* %payload2 to i32*
  store i32 %conv1, i32* %number, align 2
  ret void
}

attributes #0 = { noinline nounwind optnone "frame-pointer"="none" "min-legal-vector-width"="0" "no-trapping-math"="true" "stack-protector-buffer-size"="8" }

!llvm.module.flags = !{!0, !1, !2}
!llvm.ident = !{!3}

!0 = !{i32 1, !"SemanticInterposition", i32 1}
!1 = !{i32 1, !"wchar_size", i32 2}
!2 = !{i32 7, !"PIC Level", i32 2}
!3 = !{!"Debian clang version 14.0.6"}
!4 = distinct !{!4, !5}
!5 = !{!"llvm.loop.mustprogress"}
!6 = distinct !{!6, !5}
!7 = distinct !{!7, !5}
!8 = distinct !{!8, !5}
