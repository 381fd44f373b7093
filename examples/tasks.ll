source_filename = "tasks.c"
declare { %union.payload*, %struct.task* } @llvm.dbg.order()
%struct.unnamed_1 = type { %struct.task*, i32, void (%struct.task*)*, %union.payload, i8, i8 }
%struct.task = type { %struct.task*, i32, void (%struct.task*)*, %union.payload, i16 }
%union.payload = type { i32 }
@queue = internal global %struct.task* null
@now = internal global i32 0
@housekeeping = internal global %struct.unnamed_1 { %struct.task* null, i32 0, void (%struct.task*)* @sum_bytes, %union.payload { i32 16909060 }, i8 1, i8 0 }
declare void @llvm.dbg.declare(metadata, metadata, metadata)
define void @schedule(%struct.task* %task, i32 %delay) {
entry:
  %task.addr = alloca %struct.task*
  %delay.addr = alloca i32
  %place = alloca %struct.task**
  store %struct.task** @queue, %struct.task*** %place
  %0 = load i32, i32* @now
  %1 = load i32, i32* %delay.addr
  %2 = add i32 %0, %1
  %3 = load %struct.task*, %struct.task** %task.addr
  %4 = getelementptr inbounds %struct.task, %struct.task* %3, i32 0, i32 1
  store i32 %2, i32* %4
  br label %while.cond0

while.cond0:
  %5 = load %struct.task**, %struct.task*** %place
  %6 = load %struct.task*, %struct.task** %5
  %7 = icmp ne %struct.task* %6, null
  br i1 %7, label %land.rhs2, label %land.end1

land.rhs2:
  %8 = load %struct.task**, %struct.task*** %place
  %9 = load %struct.task*, %struct.task** %8
  %10 = bitcast %struct.task* %9 to %struct.task*
  %11 = getelementptr inbounds %struct.task, %struct.task* %10, i32 0, i32 1
  %12 = load i32, i32* %11
  %13 = load %struct.task*, %struct.task** %task.addr
  %14 = getelementptr inbounds %struct.task, %struct.task* %13, i32 0, i32 1
  %15 = load i32, i32* %14
  %16 = icmp ult i32 %12, %15
  br i1 %16, label %lor.end3, label %lor.rhs4

lor.rhs4:
  %17 = load %struct.task**, %struct.task*** %place
  %18 = load %struct.task*, %struct.task** %17
  %19 = bitcast %struct.task* %18 to %struct.task*
  %20 = getelementptr inbounds %struct.task, %struct.task* %19, i32 0, i32 1
  %21 = load i32, i32* %20
  %22 = load %struct.task*, %struct.task** %task.addr
  %23 = getelementptr inbounds %struct.task, %struct.task* %22, i32 0, i32 1
  %24 = load i32, i32* %23
  %25 = icmp eq i32 %21, %24
  br i1 %25, label %land.rhs6, label %land.end5

land.rhs6:
  %26 = load %struct.task*, %struct.task** %task.addr
  %27 = getelementptr inbounds %struct.task, %struct.task* %26, i32 0, i32 4
  %28 = load i16, i16* %27
  %29 = lshr i16 %28, 1
  %30 = and i16 %29, 1
  %31 = icmp eq i16 %30, 0
  br label %land.end5

land.end5:
  %32 = phi i1 [ false, %lor.rhs4 ], [ %31, %land.rhs6 ]
  br label %lor.end3

lor.end3:
  %33 = phi i1 [ true, %land.rhs2 ], [ %32, %land.end5 ]
  br label %land.end1

land.end1:
  %34 = phi i1 [ false, %while.cond0 ], [ %33, %lor.end3 ]
  br i1 %34, label %while.body0, label %while.end0

while.body0:
  %35 = load %struct.task**, %struct.task*** %place
  %36 = load %struct.task*, %struct.task** %35
  %37 = bitcast %struct.task* %36 to %struct.task*
  %38 = getelementptr inbounds %struct.task, %struct.task* %37, i32 0, i32 0
  store %struct.task** %38, %struct.task*** %place
  br label %while.cond0

while.end0:
  %39 = load %struct.task**, %struct.task*** %place
  %40 = load %struct.task*, %struct.task** %39
  %41 = load %struct.task*, %struct.task** %task.addr
  %42 = getelementptr inbounds %struct.task, %struct.task* %41, i32 0, i32 0
  store %struct.task* %40, %struct.task** %42
  %43 = load %struct.task*, %struct.task** %task.addr
  %44 = load %struct.task**, %struct.task*** %place
  store %struct.task* %43, %struct.task** %44
  ret void
}

define i16 @cancel(%struct.task* %task) {
entry:
  %task.addr = alloca %struct.task*
  %place = alloca %struct.task**
  store %struct.task** @queue, %struct.task*** %place
  br label %for.cond0

for.cond0:
  %0 = load %struct.task**, %struct.task*** %place
  %1 = load %struct.task*, %struct.task** %0
  %2 = icmp ne %struct.task* %1, null
  br i1 %2, label %for.body0, label %for.end0

for.body0:
  %3 = load %struct.task**, %struct.task*** %place
  %4 = load %struct.task*, %struct.task** %3
  %5 = load %struct.task*, %struct.task** %task.addr
  %6 = icmp eq %struct.task* %4, %5
  br i1 %6, label %if.then1, label %if.end1

if.then1:
  %7 = load %struct.task*, %struct.task** %task.addr
  %8 = getelementptr inbounds %struct.task, %struct.task* %7, i32 0, i32 0
  %9 = load %struct.task*, %struct.task** %8
  %10 = load %struct.task**, %struct.task*** %place
  store %struct.task* %9, %struct.task** %10
  ret i16 1

if.end1:
  br label %for.inc0

for.inc0:
  %11 = load %struct.task**, %struct.task*** %place
  %12 = load %struct.task*, %struct.task** %11
  %13 = bitcast %struct.task* %12 to %struct.task*
  %14 = getelementptr inbounds %struct.task, %struct.task* %13, i32 0, i32 0
  store %struct.task** %14, %struct.task*** %place
  br label %for.cond0

for.end0:
  ret i16 0
}

define i16 @run_until(i32 %time) {
entry:
  %time.addr = alloca i32
  %count = alloca i16
  %task = alloca %struct.task*
  store i16 0, i16* %count
  br label %while.cond0

while.cond0:
  %0 = load %struct.task*, %struct.task** @queue
  %1 = icmp ne %struct.task* %0, null
  br i1 %1, label %land.rhs2, label %land.end1

land.rhs2:
  %2 = load %struct.task*, %struct.task** @queue
  %3 = getelementptr inbounds %struct.task, %struct.task* %2, i32 0, i32 1
  %4 = load i32, i32* %3
  %5 = load i32, i32* %time.addr
  %6 = icmp ule i32 %4, %5
  br label %land.end1

land.end1:
  %7 = phi i1 [ false, %while.cond0 ], [ %6, %land.rhs2 ]
  br i1 %7, label %while.body0, label %while.end0

while.body0:
  %8 = load %struct.task*, %struct.task** @queue
  store %struct.task* %8, %struct.task** %task
  %9 = load %struct.task*, %struct.task** %task
  %10 = getelementptr inbounds %struct.task, %struct.task* %9, i32 0, i32 0
  %11 = load %struct.task*, %struct.task** %10
  store %struct.task* %11, %struct.task** @queue
  %12 = load %struct.task*, %struct.task** %task
  %13 = getelementptr inbounds %struct.task, %struct.task* %12, i32 0, i32 1
  %14 = load i32, i32* %13
  store i32 %14, i32* @now
  %15 = load %struct.task*, %struct.task** %task
  %16 = getelementptr inbounds %struct.task, %struct.task* %15, i32 0, i32 4
  %17 = load i16, i16* %16
  %18 = and i16 %17, 3
  %19 = load %struct.task*, %struct.task** %task
  %20 = getelementptr inbounds %struct.task, %struct.task* %19, i32 0, i32 4
  %21 = load i16, i16* %20
  %22 = lshr i16 %21, 2
  %23 = add i16 %22, 1
  %24 = and i16 %23, 16383
  %25 = shl i16 %24, 2
  %26 = or i16 %18, %25
  %27 = load %struct.task*, %struct.task** %task
  %28 = getelementptr inbounds %struct.task, %struct.task* %27, i32 0, i32 4
  store i16 %26, i16* %28
  %29 = load %struct.task*, %struct.task** %task
  %30 = getelementptr inbounds %struct.task, %struct.task* %29, i32 0, i32 2
  %31 = load void (%struct.task*)*, void (%struct.task*)** %30
  %32 = load %struct.task*, %struct.task** %task
  call void %31(%struct.task* %32)
  %33 = load %struct.task*, %struct.task** %task
  %34 = getelementptr inbounds %struct.task, %struct.task* %33, i32 0, i32 4
  %35 = load i16, i16* %34
  %36 = and i16 %35, 1
  %37 = icmp ne i16 %36, 0
  br i1 %37, label %if.then3, label %if.end3

if.then3:
  %38 = load %struct.task*, %struct.task** %task
  call void @schedule(%struct.task* %38, i32 100)
  br label %if.end3

if.end3:
  %39 = load i16, i16* %count
  %40 = add i16 %39, 1
  store i16 %40, i16* %count
  br label %while.cond0

while.end0:
  %41 = load i32, i32* %time.addr
  store i32 %41, i32* @now
  %42 = load i16, i16* %count
  ret i16 %42
}

define i32 @demo() {
entry:
  call void @schedule(%struct.task* bitcast (%struct.unnamed_1* @housekeeping to %struct.task*), i32 50)
  %0 = call i16 @run_until(i32 400)
  %1 = call i16 @cancel(%struct.task* bitcast (%struct.unnamed_1* @housekeeping to %struct.task*))
  %2 = load i32, i32* getelementptr (%struct.task, %struct.task* bitcast (%struct.unnamed_1* @housekeeping to %struct.task*), i32 0, i32 3, i32 0)
  %3 = load i16, i16* getelementptr (%struct.task, %struct.task* bitcast (%struct.unnamed_1* @housekeeping to %struct.task*), i32 0, i32 4)
  %4 = lshr i16 %3, 2
  %5 = zext i16 %4 to i32
  %6 = add i32 %2, %5
  ret i32 %6
}

define internal void @sum_bytes(%struct.task* %task) {
entry:
  %task.addr = alloca %struct.task*
  %sum = alloca i16
  %i = alloca i16
  store i16 0, i16* %sum
  store i16 0, i16* %i
  br label %for.cond0

for.cond0:
  %0 = load i16, i16* %i
  %1 = icmp slt i16 %0, 4
  br i1 %1, label %for.body0, label %for.end0

for.body0:
  %2 = load i16, i16* %sum
  %3 = load %struct.task*, %struct.task** %task.addr
  %4 = getelementptr inbounds %struct.task, %struct.task* %3, i32 0, i32 3
  %5 = bitcast %union.payload* %4 to [4 x i8]*
  %6 = load i16, i16* %i
  %7 = getelementptr inbounds [4 x i8], [4 x i8]* %5, i16 0, i16 %6
  %8 = load i8, i8* %7
  %9 = zext i8 %8 to i16
  %10 = add i16 %2, %9
  store i16 %10, i16* %sum
  br label %for.inc0

for.inc0:
  %11 = load i16, i16* %i
  %12 = add i16 %11, 1
  store i16 %12, i16* %i
  br label %for.cond0

for.end0:
  %13 = load i16, i16* %sum
  %14 = sext i16 %13 to i32
  %15 = load %struct.task*, %struct.task** %task.addr
  %16 = getelementptr inbounds %struct.task, %struct.task* %15, i32 0, i32 3
  %17 = bitcast %union.payload* %16 to i32*
  store i32 %14, i32* %17
  ret void
}

